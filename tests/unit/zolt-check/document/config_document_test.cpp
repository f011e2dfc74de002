#include "apps/zolt-check/document/config_document.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace zolt_check;

class Document : public testing::Test {
  protected:
    ConfigDocument load(const std::string& bytes) {
        support::writeFile(path_, bytes);
        return loadConfigDocument(path_);
    }

    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};

std::string at(const ConfigPlace& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column);
}

/// Every name of the tree with its place.
std::string outline(const std::vector<ConfigElement>& elements) {
    std::string text;
    for (const ConfigElement& element : elements) {
        text += element.name + " " + at(element.place);
        for (const ConfigAttribute& attribute : element.attributes) {
            text += " " + attribute.name + "=" + attribute.value + " " + at(attribute.place);
        }
        text += element.text ? " text " + at(*element.text) : "";
        text += element.children.empty() ? "; " : " { " + outline(element.children) + "} ";
    }
    return text;
}

/// ASCII text in an encoding of `size` bytes per character.
std::string widened(const std::string& text, std::size_t size, bool bigEndian) {
    std::string bytes;
    for (const char character : text) {
        std::string unit(size, '\0');
        (bigEndian ? unit.back() : unit.front()) = character;
        bytes += unit;
    }
    return bytes;
}

const std::string kText =
    "<?xml version=\"1.0\"?>\r\n"
    "<A  b=\"1\"\n"
    "    c='&lt;2'>text <!-- <X/> --> <B/>\n"
    "</A>\n";
const std::string kOutline = "A 2:2 b=1 2:5 c=<2 3:5 text 3:15 { B 3:35; } ";

TEST_F(Document, NamesHavePlaces) {
    const ConfigDocument document = load(kText);
    EXPECT_EQ(document.fault, "");
    EXPECT_EQ(outline(document.elements), kOutline);
}

TEST_F(Document, PlacesHoldInEveryEncoding) {
    EXPECT_EQ(outline(load("\xEF\xBB\xBF" + kText).elements), kOutline);
    EXPECT_EQ(outline(load(widened(kText, 2, false)).elements), kOutline);
    EXPECT_EQ(outline(load(widened(kText, 2, true)).elements), kOutline);
    EXPECT_EQ(outline(load(widened(kText, 4, false)).elements), kOutline);
    EXPECT_EQ(outline(load(widened(kText, 4, true)).elements), kOutline);
    EXPECT_EQ(outline(load("\xFF\xFE" + widened(kText, 2, false)).elements), kOutline);
}

TEST_F(Document, ColumnsCountCharacters) {
    // An e with an accent, the euro sign and an emoji.
    EXPECT_EQ(outline(load("<A b=\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\" c=\"\"/>").elements),
              "A 1:2 b=\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80 1:4 c= 1:12; ");
    EXPECT_EQ(
        outline(load("<?xml version='1.0' encoding='latin1'?>\n<A b=\"\xE9\" c=\"\"/>").elements),
        "A 2:2 b=\xC3\xA9 2:4 c= 2:10; ");
    const std::string emoji("\x3D\xD8\x00\xDE", 4);
    const std::string half("\x3D\xD8", 2);
    EXPECT_EQ(
        outline(
            load(widened("<A b=\"", 2, false) + emoji + widened("\" c=\"\"/>", 2, false)).elements),
        "A 1:2 b=\xF0\x9F\x98\x80 1:4 c= 1:10; ");
    EXPECT_EQ(
        outline(
            load(widened("<A b=\"", 2, false) + half + widened("\" c=\"\"/>", 2, false)).elements),
        "A 1:2 b= 1:4 c= 1:10; ");
}

TEST_F(Document, FaultsHavePlaces) {
    const ConfigDocument document = load("<A>\n  <B c=1/>\n</A>");
    EXPECT_EQ(document.fault, "the file is not well-formed: Error parsing element attribute");
    EXPECT_EQ(at(document.faultPlace), "2:8");
    EXPECT_TRUE(document.elements.empty());
    EXPECT_EQ(at(load(widened("<A>\n  <B c=1/>\n</A>", 2, true)).faultPlace), "2:8");
}

TEST_F(Document, OnlyFourLevelsAreKept) {
    EXPECT_EQ(outline(load("<A><B><C><D><E/></D></C></B></A>").elements),
              "A 1:2 { B 1:5 { C 1:8 { D 1:11; } } } ");
}

TEST_F(Document, TextBeginsAfterBlanks) {
    const std::string text = "<A><B/>\r\n\r\n\t x &lt; <B/> y</A>";
    const std::string places = "A 1:2 text 3:3 { B 1:5; B 3:11; } ";
    EXPECT_EQ(outline(load(text).elements), places);
    EXPECT_EQ(outline(load(widened(text, 2, true)).elements), places);
    EXPECT_EQ(outline(load("<A>\n \n<B/>\n</A>").elements), "A 1:2 { B 3:2; } ");
}

TEST_F(Document, ValuesThatHeldControlCharacters) {
    const ConfigDocument document =
        load("<A a=\"\n\" b='x\ty' c = \"&#10;\"\n d=\"\\r\" e=\"'\r\"/>");
    ASSERT_EQ(document.elements.size(), 1U);
    std::string names;
    for (const ConfigAttribute& attribute : document.elements[0].attributes) {
        names += attribute.controlsBecameBlanks ? attribute.name : "";
    }
    EXPECT_EQ(names, "abe");
}

TEST_F(Document, AValueEndsAtItsFirst0) {
    EXPECT_EQ(outline(load("<A b=\"x&#0;y\" c=\"\"/>").elements), "A 1:2 b=x 1:4 c= 1:15; ");
}

}  // namespace
