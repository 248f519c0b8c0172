#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "data/document.h"
#include "data/encoding.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_paths.h"
#include "support/temp_dir.h"

namespace tallix {
namespace {

using test::readFile;
using test::TempDir;
using test::writeFile;

TEST(Document, WrittenAndReadBackKeepsEveryChildInOrder) {
    TempDir dir;
    Document blank = Document::load(test::sourceDir() / "res" / "blank_tallix.xml");
    ASSERT_FALSE(blank.loadFailed()) << blank.loadError();
    blank.save(dir / "tallix2026.xml");
    Document again = Document::load(dir / "tallix2026.xml");
    ASSERT_FALSE(again.loadFailed()) << again.loadError();

    EXPECT_EQ(again.serialize(), blank.serialize());
    EXPECT_EQ(readFile(dir / "tallix2026.xml"), blank.serialize());
}

TEST(Document, CommentsKeepTheirPlaceAndDoNotShiftPositions) {
    TempDir dir;
    writeFile(dir / "c.xml", R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- household of the Smiths -->
<tallix><register><month month="May" id="May">
  <item line="1"><!-- paid by phone --><day>4</day><expense>Rent</expense><debit>900.00</debit>
    <check/><!-- no check --><categoty>Home</categoty><status>cleared</status></item>
</month></register></tallix>)");
    Document doc = Document::load(dir / "c.xml");
    pugi::xml_node line = selectOne(doc.node(), paths::kMonthByName, "May").child("item");
    EXPECT_EQ(childText(line, 4), "Home");
    setChildText(line, 5, "posted");
    doc.save(dir / "c.xml");

    const std::string saved = readFile(dir / "c.xml");
    for (const char* comment :
         {"<!-- household of the Smiths -->", "<!-- paid by phone -->", "<!-- no check -->"})
        EXPECT_NE(saved.find(comment), std::string::npos) << saved;
    Document again = Document::load(dir / "c.xml");
    EXPECT_EQ(again.serialize(), saved);
    line = selectOne(again.node(), paths::kMonthByName, "May").child("item");
    EXPECT_EQ(childText(line, 4), "Home");
    EXPECT_EQ(childText(line, 5), "posted");
}

TEST(Document, AFailedLoadLeavesAnEmptyDocumentThatIsNeverSaved) {
    const struct {
        const char* label;
        const char* bytes;
        const char* error;
    } cases[] = {
        {"missing", nullptr, "The system cannot locate the file specified: "},
        {"malformed", "<tallix><register><month month=\"May\"></register></tallix>", "mismatch"},
        {"empty", "", "No document element"},
        {"bad bytes", "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?><tallix>\x81\x20</tallix>",
         "shift_jis"},
    };
    for (const auto& [label, bytes, error] : cases) {
        SCOPED_TRACE(label);
        TempDir dir;
        const std::filesystem::path file = dir / "tallix2026.xml";
        if (bytes)
            writeFile(file, bytes);

        testing::internal::CaptureStderr();
        Document doc = Document::load(file);
        const std::string printed = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(doc.loadFailed());
        EXPECT_FALSE(doc.node().first_child());
        EXPECT_NE(doc.loadError().find(error), std::string::npos) << doc.loadError();
        EXPECT_EQ(printed, "Failed to load DOM from stocks.xml. " + doc.loadError() + "\n");

        EXPECT_THROW(doc.save(file), std::runtime_error);
        EXPECT_THROW(doc.save(dir / "other.xml"), std::runtime_error);
        EXPECT_EQ(std::filesystem::exists(file), bytes != nullptr);
        if (bytes) {
            EXPECT_EQ(readFile(file), bytes);
        }
        EXPECT_FALSE(std::filesystem::exists(dir / "other.xml"));
    }
}

// A pipe would block the load and a device never end; only a regular file of
// a data file's size is read, and the reason names the path.
TEST(Document, OnlyARegularFileOfADataFileSizeIsRead) {
    TempDir dir;
    ASSERT_EQ(::mkfifo((dir / "pipe.xml").c_str(), 0644), 0);
    std::filesystem::create_directory(dir / "folder.xml");
    writeFile(dir / "huge.xml", "<tallix>");
    std::filesystem::resize_file(dir / "huge.xml", (size_t{256} << 20) + 1);  // sparse
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {dir / "pipe.xml", " is a named pipe, not a data file"},
        {dir / "folder.xml", " is a folder, not a data file"},
        {"/dev/zero", " is a device, not a data file"},
        {dir / "huge.xml",
         " is larger than 256 MB, far more than a data file holds: it is not read"},
    };
    for (const auto& [path, reason] : cases) {
        testing::internal::CaptureStderr();
        Document doc = Document::load(path);
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(doc.loadError(), path.string() + reason);
        EXPECT_THROW(readFileBytes(path), std::runtime_error);
    }
}

TEST(Document, CarriageReturnsComeBackAsSaved) {
    TempDir dir;
    Document doc = Document::parse("<tallix><descriptions/></tallix>", "new.xml");
    pugi::xml_node list = selectOne(doc.node(), paths::kDescriptions);
    const char* texts[] = {"a\r\nb", "x\ry", "\r", "end\r", "\r\n\r\n"};
    for (const char* text : texts)
        appendTextElement(list, "description", text).append_attribute("id").set_value(text);
    doc.save(dir / "cr.xml");

    Document again = Document::load(dir / "cr.xml");
    auto read = elementChildren(selectOne(again.node(), paths::kDescriptions));
    ASSERT_EQ(read.size(), std::size(texts));
    for (size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(std::string(read[i].child_value()), texts[i]) << i;
        EXPECT_EQ(attributeText("id", read[i]), texts[i]) << i;
    }
    EXPECT_EQ(nodeText(read[0]), "a\r\nb");
}

std::string repeated(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i)
        out += text;
    return out;
}
const std::string kManyEuros = repeated("\xA4", 300);
const std::string kManyEurosText = repeated("\u20AC", 300);

// The encoding a declaration names, in lower case, between either quotes;
// "" when there is none.
TEST(Encoding, TheDeclaredEncodingIsReadFromTheDeclarationOnly) {
    const std::pair<const char*, const char*> cases[] = {
        {"<?xml version=\"1.0\" encoding=\"Windows-1252\"?><a/>", "windows-1252"},
        {"\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><a/>", "utf-8"},
        {"<?xml version=\"1.0\"?><a encoding=\"x\"/>", ""},
        {"<a/>", ""},
        {"<?xml version=\"1.0\" encoding=\"utf-8", ""}};
    for (const auto& [bytes, encoding] : cases)
        EXPECT_EQ(declaredEncoding(bytes), encoding) << bytes;
}

TEST(Document, LegacyEncodingsLoadAndSaveAsUtf8WithoutLoss) {
    const struct {
        const char* encoding;
        const char* bytes;
        const char* text;
    } cases[] = {
        {"ISO-8859-1", "Caf\xE9 cr\xE8me \xC6", "Caf\u00E9 cr\u00E8me \u00C6"},
        {"windows-1252", "\x80 5 Caf\xE9\xA0\x93ok\x94", "\u20AC 5 Caf\u00E9\u00A0\u201Cok\u201D"},
        {"ISO-8859-15", "\xA4 Caf\xE9", "\u20AC Caf\u00E9"},
        // Far more bytes out than in: the conversion grows its buffer.
        {"ISO-8859-15", kManyEuros.c_str(), kManyEurosText.c_str()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.encoding);
        TempDir dir;
        const std::string text = c.bytes;
        writeFile(dir / "old.xml", std::string("<?xml version=\"1.0\" encoding=\"") + c.encoding +
                                       "\"?>\r\n<tallix><income><name id=\"" + text +
                                       "\"><institution>" + text +
                                       "</institution></name></income></tallix>\r\n");
        Document doc = Document::load(dir / "old.xml");
        ASSERT_FALSE(doc.loadFailed()) << doc.loadError();
        EXPECT_EQ(childText(selectOne(doc.node(), paths::kIncome, c.text), 0), c.text);

        doc.save(dir / "old.xml");
        const std::string saved = readFile(dir / "old.xml");
        EXPECT_NE(saved.find("encoding=\"UTF-8\""), std::string::npos) << saved;
        EXPECT_EQ(saved.find(c.encoding), std::string::npos) << saved;
        EXPECT_NE(saved.find(c.text), std::string::npos) << saved;
        Document again = Document::load(dir / "old.xml");
        EXPECT_EQ(childText(selectOne(again.node(), paths::kIncome, c.text), 0), c.text);
        EXPECT_EQ(again.serialize(), saved);
    }
}

}  // namespace
}  // namespace tallix
