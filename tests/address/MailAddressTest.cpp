#include "address/MailAddress.h"

#include <gtest/gtest.h>
#include <utility>

namespace tessa {

namespace {

using Row = std::pair<TextView, TextView>;

TEST(MailAddress, AMailIsToldByItsScheme) {
    for (const TextView mail : {u"mailto:", u"MailTo:a@b.example", u"mailto:?body=x"})
        EXPECT_TRUE(MailAddress::IsMail(mail));
    for (const TextView other : {u"", u"mailto", u"https://mailto:", u" mailto:"})
        EXPECT_FALSE(MailAddress::IsMail(other));
}

TEST(MailAddress, WhatTheProgramSaysInItsOwnMailsArrivesWhole) {
    for (const auto& [address, encoded] : {
             Row{u"mailto:?subject=A & B #1 (c?d=e)&body=c?d=e",
                 u"mailto:?subject=A%20%26%20B%20%231%20%28c%3Fd%3De%29&body=c%3Fd%3De"},
             Row{u"mailto:?subject= (about:blank)&body=about:blank",
                 u"mailto:?subject=%20%28about%3Ablank%29&body=about%3Ablank"},
             // What parts title and address may stand in both.
             Row{u"mailto:?subject=a&body=b (c&body=d)&body=c&body=d",
                 u"mailto:?subject=a%26body%3Db%20%28c%26body%3Dd%29&body=c%26body%3Dd"},
             Row{u"mailto:?subject=a\r\n\u0085b (c)&body=c", u"mailto:?subject=a%20%20%20b%20%28c%29&body=c"},
             Row{u"mailto:?subject=\xD800 (c)&body=c", u"mailto:?subject=%3F%20%28c%29&body=c"},
             Row{u"mailto:support@tessaview.example?subject=A & B\n#7",
                 u"mailto:support@tessaview.example?subject=A%20%26%20B%20%237"},
         })
        EXPECT_EQ(MailAddress::Encoded(address), encoded);
}

TEST(MailAddress, InAnyOtherOnlyWhatNoneMayContainIsEncoded) {
    for (const auto& [address, encoded] : {
             Row{u"mailto:", u"mailto:"},
             Row{u"mailto:a@b.example?subject=x%20y&cc=c@d.example",
                 u"mailto:a@b.example?subject=x%20y&cc=c@d.example"},
             Row{u"mailto:a?subject=100% C# %4 %4g %g4 %4", u"mailto:a?subject=100%25 C%23 %254 %254g %25g4 %254"},
             Row{u"mailto:?subject=%aF%", u"mailto:?subject=%aF%25"},
             Row{u"mailto:?subject=x (y)&body=z", u"mailto:?subject=x (y)&body=z"},
             Row{u"MAILTO:?subject=x (y)&body=y", u"MAILTO:?subject=x (y)&body=y"},
             Row{u"mailto:support@tessaview.example", u"mailto:support@tessaview.example"},
         })
        EXPECT_EQ(MailAddress::Encoded(address), encoded);
}

TEST(MailAddress, APageFillsInReceiversSubjectAndText) {
    for (const auto& [fields, kept] : {
             Row{u"", u""},
             Row{u"attach=/etc/passwd", u""},
             Row{u"attachment=x&subject=a%26b&ATTACH=y", u"subject=a%26b"},
             Row{u"%61ttach=x&body=1%0A2", u"body=1%0A2"},
             Row{u"To=a&&cc=b&BCC=c&in-reply-to=d&", u"To=a&cc=b&BCC=c"},
             Row{u"%73ubject=x", u"%73ubject=x"},
             Row{u"subject=attach=x&body", u"subject=attach=x&body"},
             Row{u"%FF=x&=y", u""},
         })
        EXPECT_EQ(MailAddress::FieldsFromPage(fields), kept);
}

} // namespace

} // namespace tessa
