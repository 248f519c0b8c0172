#pragma once
// A small writer of indented XML text, in the layout the program saves: two
// blanks a level, one element a line, an empty element as <x></x>.
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallix::bench::model {

class XmlOut {
  public:
    using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

    XmlOut() { out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"; }

    void open(std::string_view tag, Attributes attributes = {}) {
        startTag(tag, attributes);
        out_ += ">\n";
        open_.emplace_back(tag);
    }
    void close() {
        pad(open_.size() - 1);
        out_ += "</";
        out_ += open_.back();
        out_ += ">\n";
        open_.pop_back();
    }
    void leaf(std::string_view tag, std::string_view text, Attributes attributes = {}) {
        startTag(tag, attributes);
        out_ += '>';
        escape(text, false);
        out_ += "</";
        out_ += tag;
        out_ += ">\n";
    }
    void leaf(std::string_view tag, long long number) { leaf(tag, std::to_string(number)); }
    std::string take() { return std::move(out_); }

  private:
    void pad(size_t depth) { out_.append(2 * depth, ' '); }
    void startTag(std::string_view tag, Attributes attributes) {
        pad(open_.size());
        out_ += '<';
        out_ += tag;
        for (const auto& [name, value] : attributes) {
            out_ += ' ';
            out_ += name;
            out_ += "=\"";
            escape(value, true);
            out_ += '"';
        }
    }
    void escape(std::string_view text, bool attribute) {
        for (char c : text) {
            switch (c) {
                case '&':
                    out_ += "&amp;";
                    break;
                case '<':
                    out_ += "&lt;";
                    break;
                case '>':
                    out_ += "&gt;";
                    break;
                case '"':
                    if (attribute)
                        out_ += "&quot;";
                    else
                        out_ += c;
                    break;
                default:
                    out_ += c;
            }
        }
    }

    std::string out_;
    std::vector<std::string> open_;
};

}  // namespace tallix::bench::model
