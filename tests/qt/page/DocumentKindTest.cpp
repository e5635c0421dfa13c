#include "qt/page/DocumentKind.h"

#include <QUrl>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

std::string Kind(const char* type, const char* address) {
    const auto kind = DocumentKind::Of(QString::fromLatin1(type), QUrl(QString::fromUtf8(address)));
    return kind.IsWebPage ? "page" : (kind.Name + QStringLiteral(" | ") + kind.Filter()).toStdString();
}

TEST(DocumentKind, PagesArePages) {
    EXPECT_EQ(Kind("text/html", "http://a.example/x.pdf"), "page");
    EXPECT_EQ(Kind("application/xhtml+xml", "http://a.example/"), "page");
}

TEST(DocumentKind, DocumentsAreNamedAfterTheirAddress) {
    EXPECT_EQ(Kind("application/pdf", "http://a.example/b/Report%202.pdf?x=1#page=2"),
              "Report 2.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("image/jpeg", "http://a.example/cat.jpeg"), "cat.jpeg | Picture (*.jpeg)");
    EXPECT_EQ(Kind("video/webm", "http://a.example/v.webm"), "v.webm | Video (*.webm)");
    EXPECT_EQ(Kind("application/pdf", "tessaview:preview/1/A%20page"), "A page.pdf | PDF document (*.pdf)");
}

TEST(DocumentKind, TheTypeDecidesTheEnding) {
    EXPECT_EQ(Kind("application/pdf", "http://a.example/view.php?id=3"), "view.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("image/png", "http://a.example/cat.jpg"), "cat.png | Picture (*.png)");
    EXPECT_EQ(Kind("application/pdf", "http://a.example/"), "download.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("application/pdf", "http://a.example/version-3.2"), "version-3.2.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("application/json", "http://a.example/api"), "api.json | Text (*.json)");
}

TEST(DocumentKind, ATextKeepsTheEndingThatSaysMoreButBecomesNoPage) {
    EXPECT_EQ(Kind("text/plain", "http://a.example/notes.md"), "notes.md | Text (*.md)");
    EXPECT_EQ(Kind("text/plain", "http://a.example/main.cpp"), "main.cpp | Text (*.cpp)");
    EXPECT_EQ(Kind("text/plain", "http://a.example/page.html"), "page.txt | Text (*.txt)");
    EXPECT_EQ(Kind("text/plain", "http://a.example/dot.svg"), "dot.txt | Text (*.txt)");
}

TEST(DocumentKind, WhatIsInTheAddressItselfIsNoName) {
    EXPECT_EQ(Kind("application/pdf", "data:application/pdf;base64,AAAA"), "document.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("image/png", "blob:http://a.example/1-2-3"), "document.png | Picture (*.png)");
}

TEST(DocumentKind, OfAPageThatDoesNotAnswerTheAddressSaysIt) {
    EXPECT_EQ(Kind("", "http://a.example/x.pdf"), "x.pdf | PDF document (*.pdf)");
    EXPECT_EQ(Kind("", "http://a.example/x.html"), "page");
    EXPECT_EQ(Kind("", "http://a.example/x.php"), "page");
    EXPECT_EQ(Kind("", "http://a.example/"), "page");
}

} // namespace

} // namespace tessa::qt
