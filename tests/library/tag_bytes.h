// Tags as bytes, made by tests.
#pragma once

#include <initializer_list>
#include <string>

namespace vk::test {

inline std::string Number(std::size_t value, int bytes, int bitsPerByte = 8) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text.push_back(static_cast<char>((value >> (i * bitsPerByte)) & ((1u << bitsPerByte) - 1)));
    return text;
}

inline std::string Bytes(std::initializer_list<int> numbers) {
    return {numbers.begin(), numbers.end()};
}

inline std::string Little(std::size_t value) {
    const std::string big = Number(value, 4);
    return {big.rbegin(), big.rend()};
}

/// A frame of ID3v2 version 2, 3 or 4; `body` starts with the encoding byte.
inline std::string Frame(int version, const std::string& id, const std::string& body,
                         char flag = 0) {
    if (version == 2) return id + Number(body.size(), 3) + body;
    return id + Number(body.size(), 4, version == 4 ? 7 : 8) + '\0' + flag + body;
}

inline std::string TextFrame(int version, const std::string& id, const std::string& text) {
    return Frame(version, id, '\0' + text);
}

inline std::string ID3v2(int version, const std::string& frames, int revision = 0, int flags = 0) {
    return "ID3" + Bytes({version, revision, flags}) + Number(frames.size(), 4, 7) + frames;
}

inline std::string ID3v1(const std::string& title, const std::string& artist, int genre = 255,
                         int track = 0) {
    const auto field = [](std::string text, std::size_t width) {
        text.resize(width, '\0');
        return text;
    };
    return "TAG" + field(title, 30) + field(artist, 30) + field("Low Tide", 30) + "1998" +
           field("taped  ", 29) + Bytes({track, genre});
}

inline std::string CommentList(std::initializer_list<std::string> comments) {
    const std::string vendor = "maker";
    std::string text = Little(vendor.size()) + vendor + Little(comments.size());
    for (const std::string& comment : comments)
        text += Little(comment.size()) + comment;
    return text;
}

inline std::string Vorbis(std::initializer_list<std::string> comments) {
    return "OggS" + std::string(300, '\x01') + "\x03vorbis" + CommentList(comments) + "\x01" +
           "\x05vorbis";
}

/// One packet in as many pages of an Ogg stream as it takes.
inline std::string OggPages(const std::string& packet) {
    constexpr std::size_t Most = 255; // bytes in a segment, segments in a page
    std::string pages, lengths(packet.size() / Most, '\xFF');
    lengths += static_cast<char>(packet.size() % Most);
    for (std::size_t at = 0; at < lengths.size(); at += Most) {
        const std::string table = lengths.substr(at, Most);
        pages += "OggS" + std::string(10, '\0') + "unit" + std::string(8, '\0') +
                 static_cast<char>(table.size()) + table + packet.substr(at * Most, Most * Most);
    }
    return pages;
}

/// A picture with its description and measures, as FLAC files hold it; kind 3 is the front cover.
inline std::string PictureBlock(std::size_t kind, const std::string& picture) {
    const std::string mime = "image/jpeg", description = "sleeve";
    return Number(kind, 4) + Number(mime.size(), 4) + mime + Number(description.size(), 4) +
           description + std::string(16, '\0') + Number(picture.size(), 4) + picture;
}

} // namespace vk::test
