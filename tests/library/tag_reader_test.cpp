#include "library/tags/embedded_picture.h"
#include "library/tags/foreign_file.h"
#include "library/tags/id3v1.h"
#include "library/tags/tag_reader.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_test.h"

#include <QByteArray>

#include <sys/stat.h>

#include <fstream>
#include <sstream>

namespace vk::test {
namespace {

using namespace std::string_literals;

const std::string Sound(400, '\x55');

/// Title, artist, album, genre, its number and the track.
std::string Brief(const TagRecord& tag) {
    return tag.Title + "|" + tag.Artist + "|" + tag.Album + "|" + tag.Genre + "|" +
           std::to_string(tag.GenreNum) + "|" + std::to_string(tag.Track);
}

struct TagReader : CoreTest {
    TagRecord Read(const std::string& bytes, const std::string& name = "a.mp3") {
        return id3.ReadTag(app.Write(name, bytes));
    }
    std::string TitleOf(const std::string& bytes, const std::string& name = "a.mp3") {
        return Read(bytes, name).Title;
    }
    ID3 id3{{log, dialogs}, state.DecimalSymbol};
};

TEST_F(TagReader, ReadsEveryVersion2) {
    const std::string longName = "X" + std::string(200, 'y'); // a size of more than seven bits
    for (const auto& [v, revision] : {std::pair{2, 0}, {2, 1}, {3, 0}, {4, 0}}) {
        state.DecimalSymbol = v == 4 || revision == 1 ? "," : ".";
        const auto frame = [v = v](const char* old, const char* id, const std::string& text) {
            return TextFrame(v, v == 2 ? old : id, text);
        };
        const std::string frames =
            frame("QQQ", "QQQQ", longName) + frame("TT2", "TIT2", "Gr\xFC\xDF\x65\0\0"s) +
            frame("TP1", "TPE1", "B\xC3\xA4rbel") + frame("TAL", "TALB", longName) +
            frame("TCO", "TCON", "(13)") + frame("TRK", "TRCK", "7/12") + std::string(20, '\0');
        EXPECT_EQ(Brief(Read(ID3v2(v, frames, revision, v == 4 ? 0x3F : 0) + Sound)),
                  "Grüße|Bärbel|" + longName.substr(0, 50) + "|Pop|13|7")
            << v << "." << revision;
    }
    EXPECT_FALSE(Logged("Error") || Logged("TagVersion"));
}

TEST_F(TagReader, ReadsVersion1) {
    const TagRecord tag = Read(Sound + ID3v1("  Seven Gulls ", "O'Hanlon", 84, 9));
    EXPECT_EQ(Brief(tag), "Seven Gulls|O'Hanlon|Low Tide|Bebob|84|9");
    EXPECT_EQ(tag.Year, "1998");
    EXPECT_EQ(tag.Comment, "taped");
    EXPECT_EQ(TitleOf(ID3v1(std::string(30, 't'), "")), std::string(30, 't'));
    std::string longComment = ID3v1("T", "A", 13, 9);
    longComment.replace(97, 28, std::string(28, 'c'));
    EXPECT_EQ(Read(Sound + longComment).Track, 9);
    longComment[97 + 28] = 'c'; // a comment that needs the place of the track
    EXPECT_EQ(Read(Sound + longComment).Track, 0);
    for (const int none : {0, 115, 255})
        EXPECT_EQ(Brief(Read(Sound + ID3v1("T", "A", none))), "T|A|Low Tide|(Unknown Genre)|255|0");
}

TEST_F(TagReader, ReadsPlainFramesAloneAndKeepsWhatCameBeforeOthers) {
    for (const int flags : {0x40, 0x80, 0xC0}) { // unsynchronised, or with an extended header
        const std::string bytes = ID3v2(3, TextFrame(3, "TIT2", "new"), 0, flags) + Sound;
        EXPECT_EQ(TitleOf(bytes + ID3v1("old", "A")), "old");
        EXPECT_EQ(TitleOf(bytes), "");
    }
    const std::string first = TextFrame(4, "TIT2", "kept"), next = TextFrame(4, "TALB", "lost");
    for (const std::string& end :
         {Frame(4, "TPE1", ""), Frame(4, "TPE1", "\0x"s, '\x80'), std::string(10, '\0')})
        EXPECT_EQ(Brief(Read(ID3v2(4, first + end + next) + Sound)),
                  "kept|||(Unknown Genre)|255|0");
    EXPECT_FALSE(Logged("Error"));
}

TEST_F(TagReader, DamageEndsTheReadingAndIsLogged) {
    const std::string first = TextFrame(3, "TIT2", "kept");
    for (const char* id : {"APIC", "TALB", "ABCD"}) {
        const std::string nonsense = id + "\xFF\xFF\xFF\xFF\0\0"s;
        EXPECT_EQ(TitleOf(ID3v2(3, first + nonsense) + Sound), "kept");
        EXPECT_TRUE(Logged("Error reading Tag Version 2.3 from filename " + app.File("a.mp3") +
                           " - Input past end of file"));
        DeleteFileAt(log.FileName());
    }
    const std::string whole = ID3v2(3, first + TextFrame(3, "TPE1", "band"));
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(Read(whole.substr(0, size)).Artist, "");
    EXPECT_TRUE(Logged("An error occured in ID3.TagVersion  at line number "));
    std::string many = first;
    for (int i = 0; i < 20000; ++i)
        many += TextFrame(3, "JUNK", "");
    EXPECT_EQ(TitleOf(ID3v2(3, many + TextFrame(3, "TIT2", "late"))), "kept");
}

TEST_F(TagReader, TextsHaveNoNulAndAtMostFiftyWholeCharacters) {
    const std::string utf16 = "\1\xFF\xFEH\0i\0"s;
    EXPECT_EQ(TitleOf(ID3v2(3, Frame(3, "TIT2", utf16))), "ÿþHi") << "not decoded";
    EXPECT_EQ(TitleOf(Vorbis({"title=a\0b\0"s}), "a.ogg"), "ab");
    std::string umlauts;
    for (int i = 0; i < 60; ++i)
        umlauts += "ü";
    EXPECT_EQ(TitleOf(ID3v2(4, TextFrame(4, "TIT2", umlauts))), umlauts.substr(0, 100));
}

TEST_F(TagReader, ReadsGenreTexts) {
    const char* unknown = "|||(Unknown Genre)|255|0";
    for (const auto& [text, brief] :
         {std::pair{"(13)", "|||Pop|13|0"}, std::pair{"(17)Garage", "|||Garage|17|0"},
          std::pair{"Garage (17)", "|||Garage|17|0"}, std::pair{" rock ", "|||rock|17|0"},
          std::pair{"Polka (Live)", "|||Polka (Live)|255|0"}, std::pair{"(13", "|||(13|255|0"},
          std::pair{"()", "|||()|255|0"}, std::pair{"(85)", "|||Latin|85|0"},
          std::pair{"folk/rock", "|||folk/rock|81|0"}, std::pair{"(114)", "|||Folklore|114|0"},
          std::pair{"(115)", unknown}, std::pair{"(99999999999999999999)", unknown},
          std::pair{"", unknown}})
        EXPECT_EQ(Brief(Read(ID3v2(3, TextFrame(3, "TCON", text)))), brief) << text;
}

TEST_F(TagReader, ReadsVorbisComments) {
    const std::string comments =
        Vorbis({"TITLE=Tide=Table", "artist=Sören", "Album=" + std::string(5000, 'x'), "novalue",
                "TrackNo=3", "genreid=8", "", "TiTlE=wrong"});
    EXPECT_EQ(Brief(Read(comments, "b.OgG")),
              "Tide=Table|Sören|" + std::string(50, 'x') + "|Jazz|8|3");
    EXPECT_EQ(TitleOf(Vorbis({"TiTlE=x"}), "a.ogg"), "");
    EXPECT_EQ(Read(Vorbis({"GENRE=Polka", "GenreNum=200"}), "a.ogg").GenreNum, 75);
    EXPECT_FALSE(Logged("Error"));
}

TEST_F(TagReader, BadVorbisHeadersKeepWhatWasRead) {
    const std::string comments = Vorbis({"title=kept", "artist=A"});
    const auto artist = comments.find("artist");
    EXPECT_EQ(TitleOf(comments.substr(0, artist), "a.ogg"), "kept");
    EXPECT_TRUE(Logged("Error reading Tag Version 0 from filename "));
    const std::string marker = "\x03vorbis";
    const auto at = comments.find(marker);
    for (std::size_t before = 0; before < 256; before += 5) // the marker across every chunk's end
        EXPECT_EQ(TitleOf(std::string(before, 'x') + comments.substr(at), "a.ogg"), "kept");
    EXPECT_EQ(Read(marker + "\xFF\xFF\xFF\xFF", "a.ogg").Genre, "(Unknown Genre)");
    EXPECT_EQ(TitleOf("\x05vorbis" + std::string(600, 'x') + comments, "a.ogg"), "");
    EXPECT_EQ(TitleOf(std::string(2 << 20, 'x') + comments, "a.ogg"), "");
    EXPECT_EQ(TitleOf(comments, "a.mp3"), "");
}

TEST_F(TagReader, WhatIsNoReadableFileGivesAnEmptyRecord) {
    ::mkfifo(app.File("pipe.mp3").c_str(), 0600);
    app.MakeFolder("folder.mp3");
    for (const char* name : {"pipe.mp3", "folder.mp3", "missing.ogg"})
        EXPECT_EQ(Brief(id3.ReadTag(app.File(name))), "|||(Unknown Genre)|255|0") << name;
    EXPECT_FALSE(Logged("Error"));
    const std::string path = app.Write("a.mp3", Sound + ID3v1("T", "A"));
    std::ifstream stream(path, std::ios::binary);
    MediaFile file(stream);
    std::filesystem::resize_file(path, Sound.size() + 10);
    TagRecord tag;
    EXPECT_THROW(ReadID3v1(file, id3.Genres(), tag), Error) << "shrunk meanwhile";
    EXPECT_EQ(tag.Title, "");
}

/// A block of a FLAC file.
std::string FlacBlock(int type, const std::string& body, bool last = false) {
    return Bytes({type + (last ? 128 : 0)}) + Number(body.size(), 3) + body;
}

/// An atom of an MP4 file.
std::string Atom(const std::string& name, const std::string& body) {
    return Number(body.size() + 8, 4) + name + body;
}

std::string Mp4(const std::string& items) {
    const std::string list = Atom("hdlr", std::string(25, '\0')) + Atom("ilst", items);
    return Atom("ftyp", "M4A \0\0\0\0"s) +
           Atom("moov", Atom("udta", Atom("meta", "\0\0\0\0"s + list)));
}

/// A value of an item; kind 1 is UTF-8, 2 UTF-16, 0 a number.
std::string Mp4Data(int kind, const std::string& value) {
    return Atom("data", Number(static_cast<std::size_t>(kind), 4) + "\0\0\0\0"s + value);
}

/// An APE tag with its footer (https://wiki.hydrogenaud.io/index.php?title=APE_Tags_Header).
std::string Ape(const std::string& title, const std::string& artist) {
    const auto item = [](const std::string& key, const std::string& value) {
        return Little(value.size()) + Little(0) + key + '\0' + value;
    };
    const std::string items = item("Title", title) + item("Artist", artist);
    return items + "APETAGEX" + Little(2000) + Little(items.size() + 32) + Little(2) + Little(0) +
           std::string(8, '\0');
}

/// With the setting `ExtendedTags`.
struct ExtendedTagReader : TagReader {
    const bool extended = true;
    ID3 newer{{log, dialogs}, state.DecimalSymbol, extended};
    std::string BriefOf(const std::string& bytes, const std::string& name = "a.mp3") {
        return Brief(newer.ReadTag(app.Write(name, bytes), Picture::Skip));
    }
};

TEST_F(ExtendedTagReader, TextsAreDecodedAndSeveralValuesJoined) {
    const std::string little = "\1\xFF\xFE\x1A\x04\x38\x04\0\0\xFF\xFEH\0\0\0"s,
                      big = "\1\xFE\xFF\x04\x1A\x04\x38\0\0\xFE\xFF\0H"s,
                      markless = "\2\x04\x1A\x04\x38\0\0\0H"s;
    for (const std::string& text : {little, big, markless, "\3\u041A\u0438\0H\0\0"s})
        for (const int version : {2, 3, 4})
            EXPECT_EQ(newer
                          .ReadTag(app.Write(
                              "a.mp3",
                              ID3v2(version, Frame(version, version == 2 ? "TT2" : "TIT2", text))))
                          .Title,
                      "\u041A\u0438; H");
    EXPECT_EQ(BriefOf(ID3v2(4, Frame(4, "TIT2", "\0caf\xE9"s) +
                                   Frame(4, "TRCK",
                                         "\1\xFF\xFE"
                                         "7\0/\0"s) +
                                   Frame(4, "TCON",
                                         "\3"
                                         "17\0(13)Power Pop\0RX\0"s))),
              "caf\u00E9|||Rock; Power Pop; Remix|17|7");
    EXPECT_EQ(BriefOf(ID3v2(3, Frame(3, "TCON", "\0(17)(13)"s))), "|||Rock; Pop|17|0");
    EXPECT_EQ(BriefOf(ID3v2(3, Frame(3, "TIT2", "\1\xFF"s) + TextFrame(3, "TPE1", "A"))),
              "|A||(Unknown Genre)|255|0");
    EXPECT_EQ(BriefOf(Vorbis({"title=T"}), "a.ogg"), "T|||(Unknown Genre)|255|0");
    EXPECT_EQ(BriefOf(Mp4(Atom("gnre", Mp4Data(0, "\0\x12"s)))), "|||Rock|17|0");
}

TEST_F(ExtendedTagReader, FormsThatTheOlderReadingDoesNotKnowAreRead) {
    const std::string frames = Frame(4, "TIT2", "\3T"s) +
                               Frame(4, "TPE1",
                                     "\3"
                                     "A\0B"s) +
                               Frame(4, "TRCK",
                                     "\3"
                                     "3/9"s);
    const std::string comments = CommentList({"Title=T", "ARTIST=A", "artist=B", "TrackNumber=3"});
    const std::string flac = "fLaC" + FlacBlock(0, std::string(34, '\0')) +
                             FlacBlock(6, std::string(70'000, 'p')) + FlacBlock(4, comments, true);
    const std::string wav = "WAVEid3 " + Little(ID3v2(4, frames).size()) + ID3v2(4, frames),
                      aiff = "AIFFID3 " + Number(ID3v2(4, frames).size(), 4) + ID3v2(4, frames);
    const std::string unsynchronised = Frame(4, "TIT2", "\0\0\0\2\3T"s, 3);
    const std::string brief = "T|A; B||(Unknown Genre)|255|3";
    const std::string ids = OggPages("OpusHead\1\2" + std::string(9, '\0'));
    for (const auto& [name, bytes] : std::vector<std::pair<std::string, std::string>>{
             {"a.mp3", ID3v2(4, frames, 0, 0x80) + Sound},
             {"b.mp3", ID3v2(4, "\0\0\0\6\1\0"s + frames + std::string(20, '\0'), 0, 0x40) + Sound},
             {"c.mp3", ID3v2(4, unsynchronised + frames.substr(12)) + Sound},
             {"d.mp3", Sound + Ape("T", "A\0B"s)},
             {"e.mp3", Sound + Ape("T", "A\0B"s) + ID3v1("", "")},
             {"f.flac", flac},
             {"g.wav", "RIFF" + Little(wav.size()) + wav},
             {"h.aiff", "FORM" + Number(aiff.size(), 4) + aiff},
             {"i.opus", ids + OggPages("OpusTags" + comments)},
             {"j.m4a", Mp4(Atom("\xA9nam", Mp4Data(2, "\0T"s)) +
                           Atom("\xA9"
                                "ART",
                                Mp4Data(1, "A") + Mp4Data(1, "B")) +
                           Atom("trkn", Mp4Data(0, "\0\0\0\3\0\0\0\0"s)))}}) {
        const std::string expected =
            name < "d" || name > "e~" ? brief : "T|A; B||(Unknown Genre)|255|0";
        EXPECT_EQ(BriefOf(bytes, name), expected) << name;
        EXPECT_NE(Brief(id3.ReadTag(app.File(name))), expected) << name << " in the older reading";
        for (std::size_t size = 0; size < bytes.size(); size += 1 + size / 4)
            BriefOf(bytes.substr(0, size), name); // torn anywhere it must come to an end
    }
}

TEST(ForeignStream, GivesUpOnAReaderThatGoesOnBehindTheEnd) {
    std::istringstream nothing;
    MediaFile file(nothing);
    ForeignStream stream(file);
    EXPECT_THROW(
        {
            for (int i = 0; i < 10'000; ++i)
                stream.readBlock(8);
        },
        Error);
}

const std::string Jpeg = "\xFF\xD8\xFF\0pixels\0"s;

std::string Picture(const std::string& bytes, bool extended = false) {
    TempFolder folder;
    return ReadEmbeddedPicture(folder.Write("a.audio", bytes), extended);
}

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

TEST(EmbeddedPicture, OfTheExtendedReadingIsTheFrontCoverOfAnyForm) {
    const std::string back = Frame(4, "APIC", "\0image/jpeg\0\4\0back"s),
                      front = Frame(4, "APIC", "\0image/jpeg\0\3\0"s + Jpeg);
    for (const std::string& frames : {back + front + back, front + back, front})
        EXPECT_EQ(Picture(ID3v2(4, frames), true), Jpeg);
    const std::string foreign = Frame(4, "APIC", "\0image/jpeg\0\3\0"s + "\xFF\0\0x"s);
    EXPECT_EQ(Picture(ID3v2(4, back + foreign, 0, 0x80), true), "\xFF\0x"s);
    EXPECT_EQ(Picture(ID3v2(4, front + back)), "back") << "the last one, as ever";
    const std::string m4a = Mp4(Atom("covr", Mp4Data(13, Jpeg)));
    EXPECT_EQ(Picture(m4a, true), Jpeg);
    EXPECT_EQ(Picture(m4a), "");
    for (std::size_t size = 0; size < m4a.size(); ++size)
        EXPECT_NE(Picture(m4a.substr(0, size), true), Jpeg);
}

TEST(EmbeddedPicture, IsTheFrontCoverOfAFlacFile) {
    const std::string front = PictureBlock(3, Jpeg), back = PictureBlock(4, "back");
    const std::string start = "fLaC" + FlacBlock(0, std::string(34, '\0'));
    EXPECT_EQ(Picture(start + FlacBlock(6, back) + FlacBlock(6, front) + FlacBlock(6, back, true)),
              Jpeg);
    EXPECT_EQ(Picture(start + FlacBlock(6, back, true) + FlacBlock(6, front)), "back");
    EXPECT_EQ(Picture(start + "\x06\xFF\xFF\xFF" + front.substr(0, 40)), "");
    EXPECT_EQ(PictureOfBlock(front.substr(0, front.size() - 1)), "");
}

TEST(EmbeddedPicture, IsPutTogetherFromThePagesOfAnOggFile) {
    std::string large = Jpeg;
    for (int i = 0; i < 150000; ++i)
        large += static_cast<char>(i * 7);
    const std::string base64 =
        QByteArray::fromStdString(PictureBlock(3, large)).toBase64().toStdString();
    for (const std::string& marker : {"\x03vorbis"s, "OpusTags"s})
        for (const std::string& key : {"METADATA_BLOCK_PICTURE="s, "metadata_block_picture="s}) {
            const std::string comments =
                CommentList({"title=Rain", key + base64, "artist=Someone"});
            const std::string file =
                OggPages("first packet") + OggPages(marker + comments) + OggPages("sound");
            EXPECT_TRUE(Picture(file) == large) << key;
            EXPECT_EQ(Picture(file.substr(0, file.size() / 2)), "");
        }
    EXPECT_EQ(FromBase64("SGVsbG8="), "Hello");
    EXPECT_EQ(FromBase64("SG?s"), "");
}

} // namespace
} // namespace vk::test
