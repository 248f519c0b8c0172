#pragma once
// The sample year attached to 2026 in a fresh data folder, on 21 November
// 2026, with a cloud drive whose backup folder exists: the setting of the
// main window's tests.
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QMenu>
#include <QPushButton>
#include <QStringList>
#include <filesystem>

#include "app/session.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix::test {

class SampleYearTest : public ::testing::Test {
  protected:
    static FixedEnvironment onTheTwentyFirstOfNovember() {
        FixedEnvironment e;
        e.date = {2026, 11, 21};
        return e;
    }

    void SetUp() override {
        env.root = tmp / "root";
        env.documents = tmp / "docs";
        env.cloud = tmp / "gdrive";
        std::filesystem::create_directories(cloudBackup());
        std::filesystem::create_directories(env.root / "tallix");
        std::filesystem::copy_file(sourceDir() / "examples" / "tallix2026.xml", yearFile());
        writeFile(env.root / "tallix" / "tallix.xml",
                  "<tallix><year year=\"2026\"><file>tallix2026.xml</file>"
                  "<status>initialized</status></year></tallix>");
    }
    std::filesystem::path yearFile() const { return env.root / "tallix" / "tallix2026.xml"; }
    std::filesystem::path cloudBackup() const {
        return tmp / "gdrive" / "My Drive" / "tallix" / "backup";
    }
    std::filesystem::path localBackup() const { return tmp / "docs" / "tallix" / "backup"; }

    // The face colour the button is drawn with, read from its pixels.
    static QColor face(QPushButton* button) {
        QImage image = button->grab().toImage();
        return image.pixelColor(image.width() / 2, 3);
    }
    static QStringList itemTexts(QMenu* menu) {
        QStringList texts;
        for (QAction* a : menu->actions())
            texts << a->text();
        return texts;
    }

    TempDir tmp;
    FixedEnvironment env = onTheTwentyFirstOfNovember();
    ScriptedPrompter prompter;
    Session session{env, prompter};
};

}  // namespace tallix::test
