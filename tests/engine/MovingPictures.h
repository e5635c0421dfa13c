#pragma once
#include <QByteArray>

namespace tessa::qt {

/// Pictures of one colour that are red and blue in turn, a tenth of a second each, for ever.
struct MovingPicture {
    const char* name;
    const char* type;
    const char* base64;

    [[nodiscard]] QByteArray Bytes() const { return QByteArray::fromBase64(base64); }
    /// The whole answer of a web server.
    [[nodiscard]] QByteArray Answer() const {
        return QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: ") + type +
               "\r\nContent-Length: " + QByteArray::number(Bytes().size()) + "\r\n\r\n" + Bytes();
    }
};

inline constexpr MovingPicture kMovingGif{
    "Gif", "image/gif",
    "R0lGODlhBAAEAIAAAP8AAAAA/yH/C05FVFNDQVBFMi4wAwEAAAAh+QQACgAAACwAAAAABAAEAAACDQRBEARBEARBEARBEAUAIfkEAAoAAAAsAAAA"
    "AAQABAAAAg0MwzAMwzAMwzAMwzAFADs="};
inline constexpr MovingPicture kMovingPng{
    "Png", "image/png",
    "iVBORw0KGgoAAAANSUhEUgAAAAQAAAAECAIAAAAmkwkpAAAACGFjVEwAAAACAAAAAPONk3AAAAAaZmNUTAAAAAAAAAAEAAAABAAAAAAAAAAAAAoA"
    "ZAAAYuvU2gAAABBJREFUeNpj+M/AAEcMxHEArpMP8ThejBEAAAAaZmNUTAAAAAEAAAAEAAAABAAAAAAAAAAAAAoAZAAA+Zg+DgAAABRmZEFUAAAA"
    "AnjaY2Bg+I+EiOIAAI6zD/E5sA48AAAAAElFTkSuQmCC"};
inline constexpr MovingPicture kMovingWebp{
    "Webp", "image/webp",
    "UklGRnwAAABXRUJQVlA4WAoAAAACAAAAAwAAAwAAQU5JTQYAAAD/////AABBTk1GJAAAAAAAAAAAAAMAAAMAAGQAAABWUDhMDAAAAC8DwAAAKED/"
    "C9D/AEFOTUYkAAAAAAAAAAAAAwAAAwAAZAAAAFZQOEwMAAAALwPAAAAoQAH63/8A"};

} // namespace tessa::qt
