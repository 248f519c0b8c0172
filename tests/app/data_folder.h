#pragma once
// A data folder as a first run leaves it (the templates, the index and the
// backup folder), for a session on 15 March 2026.
#include <gtest/gtest.h>

#include <string>

#include "app/first_run.h"
#include "app/session.h"
#include "data/node_text.h"
#include "data/year_lookup.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix::test {

class DataFolderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        env.root = tmp / "root";
        env.documents = tmp / "docs";
        installMissingFiles(session.dataFolder(), env.documents);
        testing::internal::CaptureStderr();  // the failure line: there was no index yet
        loadOrCreateIndex(session);
        testing::internal::GetCapturedStderr();
    }

    // Gives `year` the entry (file, status) and saves the index.
    void setEntry(const std::string& year, const std::string& file, const std::string& status) {
        pugi::xml_node entry = yearEntry(session.index.node(), year);
        ASSERT_TRUE(entry) << year;
        setChildText(entry, 0, file);
        setChildText(entry, 1, status);
        session.saveIndex();
    }
    void removeEntry(const std::string& year) {
        pugi::xml_node entry = yearEntry(session.index.node(), year);
        entry.parent().remove_child(entry);
        session.saveIndex();
    }
    // Copies `source` into the data folder as `name`.
    void addYearFile(const std::string& name,
                     const std::filesystem::path& source = "res/blank_tallix.xml") {
        std::filesystem::copy_file(sourceDir() / source, session.inDataFolder(name));
    }
    std::string indexEntryText(const std::string& year, size_t child) {
        Document onDisk = Document::load(session.indexPath());
        return childText(yearEntry(onDisk.node(), year), child);
    }

    TempDir tmp;
    FixedEnvironment env;
    ScriptedPrompter prompter;
    Session session{env, prompter};
};

}  // namespace tallix::test
