#include "library/tags/embedded_picture.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/temp_folder.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <vector>

namespace vk::test {

using namespace std::string_literals;

namespace {

const std::string Jpeg = "\xFF\xD8\xFF\0pixels\0"s;

std::string Picture(const std::string& bytes) {
    TempFolder folder;
    return ReadEmbeddedPicture(folder.Write("a.audio", bytes));
}

std::string Base64(const std::string& bytes) {
    return QByteArray::fromStdString(bytes).toBase64().toStdString();
}

} // namespace

TEST(EmbeddedPicture, ComesOutOfEveryVersionOfTheTag) {
    const std::string utf16 = "\1image/jpeg\0\3\xFF\xFE\0a\0\0"s;
    for (const auto& [version, id, head] : std::vector<std::tuple<int, const char*, std::string>>{
             {2, "PIC", "\0JPG\3Front\0"s},
             {3, "APIC", "\0image/jpeg\0\3Front\0"s},
             {4, "APIC", "\0image/jpeg\0\3\0"s},
             {3, "APIC", "\0image/png\0\0\0"s},
             {3, "APIC", utf16}}) {
        const std::string tag = ID3v2(version, Frame(version, id, head + Jpeg));
        EXPECT_EQ(Picture(tag + "sound"), Jpeg) << version;
        EXPECT_EQ(Picture(tag.substr(0, tag.size() - 2)), "") << version;
    }
    EXPECT_EQ(Picture(ID3v2(3, Frame(3, "APIC", "\0image/jpeg\0\3\0"s + Jpeg), 0, 0x80)), "");
    for (const std::string& torn : {"\0"s, "\0image/jpeg"s, "\0image/jpeg\0\3Front"s})
        EXPECT_EQ(Picture(ID3v2(3, Frame(3, "APIC", torn))), "");
    EXPECT_EQ(Picture("no tag at all"), "");
}

TEST(EmbeddedPicture, IsTheFrontCoverOfAFlacFile) {
    const auto block = [](int type, const std::string& body, bool last = false) {
        return Number(static_cast<std::size_t>(type + (last ? 128 : 0)), 1) +
               Number(body.size(), 3) + body;
    };
    const std::string front = PictureBlock(3, Jpeg), back = PictureBlock(4, "back");
    const std::string start = "fLaC" + block(0, std::string(34, '\0'));
    EXPECT_EQ(Picture(start + block(6, back) + block(6, front) + block(6, back, true)), Jpeg);
    EXPECT_EQ(Picture(start + block(6, back, true) + block(6, front)), "back");
    EXPECT_EQ(Picture(start + "\x06\xFF\xFF\xFF" + front.substr(0, 40)), "");
    EXPECT_EQ(PictureOfBlock(front.substr(0, front.size() - 1)), "");
}

TEST(EmbeddedPicture, IsPutTogetherFromThePagesOfAnOggFile) {
    std::string large = Jpeg;
    for (int i = 0; i < 150000; ++i)
        large += static_cast<char>(i * 7);
    for (const std::string& marker : {"\x03vorbis"s, "OpusTags"s})
        for (const std::string& key : {"METADATA_BLOCK_PICTURE="s, "metadata_block_picture="s}) {
            const std::string comments =
                CommentList({"title=Rain", key + Base64(PictureBlock(3, large)), "artist=Someone"});
            const std::string file =
                OggPages("first packet") + OggPages(marker + comments) + OggPages("sound");
            EXPECT_EQ(Picture(file) == large, true) << key;
            EXPECT_EQ(Picture(file.substr(0, file.size() / 2)), "");
        }
    EXPECT_EQ(FromBase64("SGVsbG8="), "Hello");
    EXPECT_EQ(FromBase64("SG?s"), "");
}

} // namespace vk::test
