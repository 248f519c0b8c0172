#include "data/query.h"

#include <map>
#include <memory>
#include <stdexcept>

namespace tallix {
namespace {

constexpr std::string_view kFromAnywhere = "//tallix";

struct CompiledQuery {
    explicit CompiledQuery(const std::string& text, bool keyed) {
        if (keyed)
            variables.add("key", pugi::xpath_type_string);
        query = std::make_unique<pugi::xpath_query>(text.c_str(), keyed ? &variables : nullptr);
    }
    pugi::xpath_variable_set variables;
    std::unique_ptr<pugi::xpath_query> query;
};

std::string rootedText(std::string_view path) {
    if (path.substr(0, kFromAnywhere.size()) == kFromAnywhere &&
        (path.size() == kFromAnywhere.size() || path[kFromAnywhere.size()] == '/' ||
         path[kFromAnywhere.size()] == '['))
        return std::string(path.substr(1));
    return std::string(path);
}

// Compiled queries are kept for the life of the program: the set of texts is
// small and fixed, and compiling is the costly part of a lookup.
CompiledQuery& compiled(std::string_view prefix, std::string_view closing, bool keyed) {
    static std::map<std::string, std::unique_ptr<CompiledQuery>, std::less<>> cache;
    std::string text = rootedText(prefix);
    if (keyed) {
        if (text.empty() || text.back() != '\'' || closing.empty() || closing.front() != '\'')
            throw std::logic_error("keyed query without quotes: " + std::string(prefix));
        text.pop_back();
        text += "$key";
        text += closing.substr(1);
    }
    auto it = cache.find(text);
    if (it == cache.end())
        it = cache.emplace(text, std::make_unique<CompiledQuery>(text, keyed)).first;
    return *it->second;
}

std::vector<pugi::xml_node> toNodes(const pugi::xpath_node_set& set) {
    std::vector<pugi::xml_node> out;
    out.reserve(set.size());
    for (const pugi::xpath_node& n : set)
        out.push_back(n.node());
    return out;
}

CompiledQuery& keyedQuery(std::string_view prefix, std::string_view key, std::string_view closing) {
    CompiledQuery& q = compiled(prefix, closing, true);
    q.variables.set("key", std::string(key).c_str());
    return q;
}

}  // namespace

std::string buildQuery(std::string_view prefix, std::string_view key, std::string_view closing) {
    std::string text(prefix);
    text += key;
    text += closing;
    return text;
}

pugi::xml_node selectOne(pugi::xml_node context, std::string_view path) {
    return compiled(path, {}, false).query->evaluate_node(context).node();
}

std::vector<pugi::xml_node> selectAll(pugi::xml_node context, std::string_view path) {
    return toNodes(compiled(path, {}, false).query->evaluate_node_set(context));
}

pugi::xml_node selectOne(pugi::xml_node context, std::string_view prefix, std::string_view key,
                         std::string_view closing) {
    return keyedQuery(prefix, key, closing).query->evaluate_node(context).node();
}

std::vector<pugi::xml_node> selectAll(pugi::xml_node context, std::string_view prefix,
                                      std::string_view key, std::string_view closing) {
    return toNodes(keyedQuery(prefix, key, closing).query->evaluate_node_set(context));
}

pugi::xml_node requireOne(pugi::xml_node context, std::string_view path) {
    pugi::xml_node n = selectOne(context, path);
    if (!n)
        throw std::runtime_error("nothing found for " + std::string(path));
    return n;
}

pugi::xml_node requireOne(pugi::xml_node context, std::string_view prefix, std::string_view key,
                          std::string_view closing) {
    pugi::xml_node n = selectOne(context, prefix, key, closing);
    if (!n)
        throw std::runtime_error("nothing found for " + buildQuery(prefix, key, closing));
    return n;
}

}  // namespace tallix
