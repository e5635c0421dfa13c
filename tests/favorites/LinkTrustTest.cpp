#include "favorites/LinkTrust.h"

#include <gtest/gtest.h>

namespace {

TEST(LinkTrust, AddressesOfTheWebOpen) {
    for (const TextView address :
         {u"http://a/", u"HTTPS://a/?x=javascript:", u"ftp://a/", u"about:blank", u"mailto:a@b", u"www.a.example",
          u"localhost:8080", u"a.example:80/x", u"some words: more", u""})
        EXPECT_EQ(TrustOf(address), LinkTrust::Open) << ToUtf8(address);
}

TEST(LinkTrust, ScriptsNeverOpenHoweverTheyAreWritten) {
    for (const TextView address :
         {u"javascript:alert(1)", u"JavaScript:x", u"  \t\u0001javascript:x", u"java\tscript:x", u"vbscript:x",
          u"view-source:javascript:x", u"javascript:80", u"\u00A0javascript:x"})
        EXPECT_EQ(TrustOf(address), LinkTrust::Never) << ToUtf8(address);
}

TEST(LinkTrust, FilesAndThePartsOfTheProgramAreAskedAbout) {
    for (const TextView address :
         {u"file:///etc/passwd", u" FILE:///x", u"/etc/passwd", u"\\\\server\\x", u"~/x", u"../x", u"C:\\x.exe",
          u"view-source:file:///x", u"data:text/html,x", u"chrome://kill", u"qrc:/x", u"tel:1-2", u"blob:x"})
        EXPECT_EQ(TrustOf(address), LinkTrust::Ask) << ToUtf8(address);
}

} // namespace
