#include "address/TypedAddress.h"

#include <gtest/gtest.h>
#include <vector>

namespace tessa {

namespace {

constexpr TextView kSearchAddress = u"https://search.tessaview.example/d/search/p/tessaview/?Keywords=";

bool HasNoStar(TextView address) { return address.find(u'*') == TextView::npos; }

/// "host https://a else http://a"; of words to search for only the words.
std::string Read(TextView typed) {
    const TypedAddress read = MeaningOf(typed, HasNoStar);
    constexpr std::array kNames{"nothing ", "words ", "mail ", "path ", "address ", "host "};
    const std::string leads =
        kNames.at(static_cast<std::size_t>(read.Kind)) +
        ToUtf8(read.Target.starts_with(kSearchAddress) ? read.Target.substr(kSearchAddress.size()) : read.Target);
    return read.Fallback.empty() ? leads : leads + " else " + ToUtf8(read.Fallback);
}

using Rows = std::vector<std::pair<Text, std::string>>;

void Expect(const Rows& rows) {
    for (const auto& [typed, read] : rows) EXPECT_EQ(Read(typed), read) << ToUtf8(typed);
}

TEST(TypedAddress, NothingAndScriptsLeadToTheBlankPage) {
    Expect({
        {u"", "nothing about:blank"},
        {u" \t\u3000", "nothing about:blank"},
        {u"\uFEFF", "nothing about:blank"},
        {u"javascript:alert(1)", "nothing about:blank"},
        {u" JavaScript:", "nothing about:blank"},
        {u"java\u017Fcript:1", "nothing about:blank"},
        {u"\uFEFFjavascript:1", "nothing about:blank"},
        {u"javascript", "words javascript"},
        {u"java script:1", "words java%20script%3A1"},
    });
}

TEST(TypedAddress, ASchemeMakesAnAddress) {
    Expect({
        {u"https://a.example/b c", "address https://a.example/b c"},
        {u" HTTP://A.example ", "address HTTP://A.example"},
        {u"about:blank", "address about:blank"},
        {u"tessaview:help#keys", "address tessaview:help#keys"},
        {u"x-y+z.1:w", "address x-y+z.1:w"},
        {u"a.example:", "address a.example:"},
        {u"user:secret@a.example", "address user:secret@a.example"},
        {u"localhost:123456", "address localhost:123456"},
        {u"localhost:80a", "address localhost:80a"},
        {u"\uFEFFhttps://a/", "address https://a/"},
        {u"https://*/", "words https%3A%2F%2F%2A%2F"},
        {u"1x:w", "words 1x%3Aw"},
        {u"\u0436x:w", "words %D0%B6x%3Aw"},
        {u":w", "words %3Aw"},
    });
}

TEST(TypedAddress, AHostIsTriedSafelyFirst) {
    Expect({
        {u"a.example", "host https://a.example else http://a.example"},
        {u"a.example.", "host https://a.example. else http://a.example."},
        {u"\u0436.example/\u0436?b#c", "host https://\u0436.example/\u0436?b#c else http://\u0436.example/\u0436?b#c"},
        {u"localhost", "host https://localhost else http://localhost"},
        {u"localhost/x", "host https://localhost/x else http://localhost/x"},
        {u"tea:80", "host https://tea:80 else http://tea:80"},
        {u"tea:80/x", "host https://tea:80/x else http://tea:80/x"},
        {u"tea:80?x", "host https://tea:80?x else http://tea:80?x"},
        {u"tea:80#x", "host https://tea:80#x else http://tea:80#x"},
        {u"tea:65535", "host https://tea:65535 else http://tea:65535"},
        {u"1.2", "host https://1.2 else http://1.2"},
        {u"[::1]", "host https://[::1] else http://[::1]"},
        {u"[::1]:80/x", "host https://[::1]:80/x else http://[::1]:80/x"},
        {u"[v1.x]", "host https://[v1.x] else http://[v1.x]"},
        {u"a.example/\u3000", "host https://a.example/ else http://a.example/"},
        {u"a.example/\u3000x", "host https://a.example/\u3000x else http://a.example/\u3000x"},
    });
}

TEST(TypedAddress, WhatOnlyResemblesAHostIsWords) {
    Expect({
        {u"tea", "words tea"},
        {u"LOCALHOST", "words LOCALHOST"},
        {u"tea/cake", "words tea%2Fcake"},
        {u"a..example", "words a..example"},
        {u"a.example..", "words a.example.."},
        {u".example", "words .example"},
        {u".", "words ."},
        {u"a.example/b c", "words a.example%2Fb%20c"},
        {u"a.example b", "words a.example%20b"},
        {u"a@b.example", "words a%40b.example"},
        {u"[::1]x", "words %5B%3A%3A1%5Dx"},
        {u"[::1", "words %5B%3A%3A1"},
        {u"[]:a", "words %5B%5D%3Aa"},
        {u"a.*", "words a.%2A"},
        {u"~/x", "words ~%2Fx"},
        {u"./x", "words .%2Fx"},
        {u"\\\\host\\share", "words %5C%5Chost%5Cshare"},
    });
}

TEST(TypedAddress, APathBeginsAtTheRoot) {
    Expect({
        {u"/etc/passwd", "path /etc/passwd"},
        {u" //a b#c ", "path //a b#c"},
        {u"/*", "path /*"},
    });
}

TEST(TypedAddress, WordsArriveWholeAtEachService) {
    Expect({
        {u" what is 1.5? ", "words what%20is%201.5%3F"},
        {u"a+b=100% \"x\" &c#d~e_f-g", "words a%2Bb%3D100%25%20%22x%22%20%26c%23d~e_f-g"},
        {u"https://search.tessaview.example/d/search/p/tessaview/?Keywords= a&b ", "words %20a%26b%20"},
        {u"https://ads.tessaview.example/ad.asp?id=a/b", "words https://ads.tessaview.example/ad.asp?id=a%2Fb"},
        {u"https://find.tessaview.example/find.asp?id=a?", "words https://find.tessaview.example/find.asp?id=a%3F"},
        {u"\uFEFFhttps://find.tessaview.example/find.asp?id=a?",
         "words https://find.tessaview.example/find.asp?id=a%3F"},
        {u" https://find.tessaview.example/find.asp?id=a b", "address https://find.tessaview.example/find.asp?id=a b"},
    });
}

TEST(TypedAddress, HalfACharacterIsInNoAddress) {
    Expect({
        {u"tea \xD800", "words tea%20%3F"},
        {u"\xDC00.example", "words %3F.example"},
        {u"https://a.example/\xD800", "words https%3A%2F%2Fa.example%2F%3F"},
        {u"\U0001F600.example", "host https://\U0001F600.example else http://\U0001F600.example"},
    });
}

TEST(TypedAddress, AMailIsEncoded) {
    Expect({
        {u" MailTo:a@b.example?subject=C# ", "mail MailTo:a@b.example?subject=C%23"},
        {u"mailto", "words mailto"},
    });
}

} // namespace

} // namespace tessa
