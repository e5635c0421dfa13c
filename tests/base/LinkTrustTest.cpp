// Tests: Schemes
#include "base/LinkTrust.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

/// What becomes of an address from each source: "+" opens, "?" is asked about, "-" never opens.
std::string FromEach(TextView address) {
    std::string all;
    for (const LinkSource source :
         {LinkSource::Group, LinkSource::Favorite, LinkSource::Folder, LinkSource::Session, LinkSource::HandOver}) {
        const LinkTrust trust = TrustOf(address, source);
        all += trust == LinkTrust::Open ? '+' : trust == LinkTrust::Ask ? '?' : '-';
    }
    return all;
}

struct Expected {
    TextView address;
    const char* trust; ///< of a group, a Favorite, a folder of them, a session, a hand-over
};

constexpr std::array kExpected{
    // The web, and words.
    Expected{u"http://a/", "+++++"},
    Expected{u"HTTPS://a/?x=javascript:", "+++++"},
    Expected{u"about:blank", "+++++"},
    Expected{u"About:Blank#x", "+++++"},
    Expected{u"www.a.example", "+++++"},
    Expected{u"localhost:8080", "+++++"},
    Expected{u"a.example:80/x", "+++++"},
    Expected{u"some words: more", "+++++"},
    Expected{u"Downloads/evil.html", "+++++"}, // a host or words: no file is looked for
    Expected{u"view-source:http://a/", "+++++"},
    Expected{u":x", "+++++"},
    Expected{u"m\u00FCnchen.example", "+++++"},
    Expected{u"m\u00FCnchen.example:8080/x", "+++++"},
    Expected{u"m\u00FCnchen.example/wiki/a:b", "+++++"},
    Expected{u"\u3000https://a/", "+++++"},
    Expected{u"", "+++++"},
    // This computer.
    Expected{u"file:///etc/passwd", "???++"},
    Expected{u" FILE:///x", "???++"},
    Expected{u"\u3000file:///etc/passwd", "???++"},
    Expected{u"\u0085\u1680\u2000\u200A\u2028\u2029\u202F\u205Ffile:///x", "???++"},
    Expected{u"\u2003/etc/passwd", "???++"},
    Expected{u"view-source:\u3000file:///x", "???++"},
    Expected{u"view-source: file:///x", "???++"},
    Expected{u"/etc/passwd", "???++"},
    Expected{u"\\\\server\\x", "???++"},
    Expected{u"~/x", "???++"},
    Expected{u"../x", "???++"},
    Expected{u"view-source:file:///x", "???++"},
    // Mail, where a person chose it.
    Expected{u"mailto:a@b", "-+--+"},
    Expected{u"MAILTO:a@b?attach=/x", "-+--+"},
    Expected{u"\tmail\tto:a@b", "-+--+"},
    Expected{u"\u3000mailto:x?attach=/x", "-+--+"},
    // The program's own pages.
    Expected{u"tessaview:start", "+??++"},
    // Other programs, and documents in themselves.
    Expected{u"C:\\x.exe", "???++"},
    Expected{u"data:text/html,x", "+??++"},
    Expected{u"tel:1-2", "???++"},
    Expected{u"ftp://a/", "???++"},
    Expected{u"blob:x", "???++"},
    // No scheme has such letters, but who opens it may not see them.
    Expected{u"\u200Bfile:///x", "???++"},
    Expected{u"\uFEFFjavascript:x", "???++"},
    Expected{u"f\u0131le:///x", "???++"},
    // The engine's inside.
    Expected{u"chrome://kill", "-----"},
    Expected{u" CHROME://kill", "-----"},
    Expected{u"chr\nome://kill", "-----"},
    Expected{u"view-source:chrome://kill", "-----"},
    Expected{u"chrome:80", "-----"},
    Expected{u"chrome-untrusted://x", "-----"},
    Expected{u"devtools://x", "-----"},
    Expected{u"qrc:/x", "-----"},
    Expected{u"about:gpucrash", "-----"},
    Expected{u"about:", "-----"},
    Expected{u"tessaview-ask:x", "-----"},
    Expected{u"tessaview-hide:x", "-----"},
    Expected{u"tessaview-empty:1", "-----"},
    // Scripts.
    Expected{u"javascript:alert(1)", "-----"},
    Expected{u"JavaScript:x", "-----"},
    Expected{u"  \t\u0001javascript:x", "-----"},
    Expected{u"java\tscript:x", "-----"},
    Expected{u"vbscript:x", "-----"},
    Expected{u"view-source:javascript:x", "-----"},
    Expected{u"javascript:80", "-----"},
    Expected{u"\u00A0javascript:x", "-----"},
};

TEST(LinkTrust, IsAQuestionOfWhereAnAddressLeadsAndWhereItComesFrom) {
    for (const auto& [address, trust] : kExpected) EXPECT_EQ(FromEach(address), trust) << ToUtf8(address);
}

} // namespace

} // namespace tessa
