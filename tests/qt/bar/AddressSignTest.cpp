#include "tests/qt/bar/BarDesk.h"

#include <QImage>
#include <QInputMethodEvent>

namespace tessa::qt {

namespace {

constexpr TextView kSignedBox = u"cboAddress";
constexpr TextView kSecureAddress = u"https://site.example/page";

BoxSign SecureSign() { return {{u"security-high"}, u"Secure", {}, false, {8, 12}}; }

/// An address box that shows a page's address with its sign.
class AddressSignTest : public BarDesk {
protected:
    void SetUp() override {
        address = AddCombo(kSignedBox);
        AddCombo(u"cboSearch");
        AddBand(u"bndAddress", BandKind::Toolbar, {kSignedBox});
        AddBand(u"bndSearch", BandKind::Toolbar, {u"cboSearch"});
        ShowWindow();
        Box(u"cboSearch").setFocus();
    }

    [[nodiscard]] QString Meaning() {
        const auto* sign = Field(kSignedBox).findChild<QAction*>(QStringLiteral("addressSign"));
        return sign ? sign->text() : QString();
    }

    /// Where a character of the text begins, in the field.
    int PlaceOf(int position) {
        QLineEdit& field = Field(kSignedBox);
        const int before = field.cursorPosition();
        field.setCursorPosition(position);
        const int place = field.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        field.setCursorPosition(before);
        return place;
    }

    /// How far the text between two of its characters stands out against the ground, from 0 to 255.
    int Contrast(int first, int last) {
        QLineEdit& field = Field(kSignedBox);
        const QImage image = field.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        const int ground = qGray(field.palette().color(QPalette::Base).rgb());
        int most = 0;
        for (int x = PlaceOf(first) + 1; x < PlaceOf(last) - 1; ++x) {
            for (int y = 5; y < image.height() - 5; ++y)
                most = std::max(most, std::abs(qGray(image.pixel(x, y)) - ground));
        }
        return most;
    }

    void SetColours(const QColor& text, const QColor& ground) {
        QPalette palette = Field(kSignedBox).palette();
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Base, ground);
        Field(kSignedBox).setPalette(palette);
    }

    ComboTool* address = nullptr;
};

TEST_F(AddressSignTest, StandsBesideNoTextButItsOwn) {
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    EXPECT_EQ(Meaning(), QStringLiteral("Secure"));
    EXPECT_EQ(Field(kSignedBox).accessibleDescription(), QStringLiteral("Secure"));
    Box(kSignedBox).setFocus();
    QTest::keyClicks(&Box(kSignedBox), QStringLiteral("x"));
    EXPECT_EQ(Meaning(), QStringLiteral("Not the address of the page that is shown"));
    QTest::keyClick(&Box(kSignedBox), Qt::Key_Escape);
    EXPECT_EQ(Field(kSignedBox).text(), QString::fromUtf16(kSecureAddress.data()));
    EXPECT_EQ(Meaning(), QStringLiteral("Secure"));
}

TEST_F(AddressSignTest, OfAPageThatComesWhileTheUserTypesWaitsWithItsAddress) {
    address->ShowSigned(u"about:blank", {});
    Box(kSignedBox).setFocus();
    QTest::keyClicks(&Box(kSignedBox), QStringLiteral("bank.example"));
    EXPECT_EQ(Meaning(), QString());
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    EXPECT_EQ(Meaning(), QStringLiteral("Not the address of the page that is shown"));
    Box(u"cboSearch").setFocus();
    EXPECT_EQ(Meaning(), QStringLiteral("Secure"));
}

TEST_F(AddressSignTest, TheHostStandsOutInLightAndInDarkColours) {
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    for (const auto& [text, ground] : {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black)}) {
        SetColours(text, ground);
        const int host = Contrast(8, 20), scheme = Contrast(0, 7), path = Contrast(21, 25);
        EXPECT_GT(host, scheme + 40);
        EXPECT_GT(host, path + 40);
        EXPECT_GT(scheme, 90) << "it can be read all the same";
    }
}

TEST_F(AddressSignTest, AnAddressThatIsWaitedForIsSubduedAsAWhole) {
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    const int full = Contrast(8, 20);
    BoxSign waiting = SecureSign();
    waiting.Waiting = true;
    address->ShowSigned(Text(kSecureAddress), waiting);
    EXPECT_LT(Contrast(8, 20), full - 40);
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    EXPECT_EQ(Contrast(8, 20), full);
}

TEST_F(AddressSignTest, AnAddressWithoutAHostIsDrawnAlike) {
    address->ShowSigned(u"about:blank", {});
    EXPECT_EQ(Contrast(0, 5), Contrast(6, 11));
}

TEST_F(AddressSignTest, TheEndOfALongHostIsSeenUnlessTheUserIsInTheBox) {
    const Text host = u"www.bank.example." + Text(200, u'a') + u".evil.example";
    const Text text = u"https://" + host + u"/" + Text(100, u'b');
    BoxSign sign = SecureSign();
    sign.Weight = {8, host.size()};
    const int end = 8 + static_cast<int>(host.size());
    const auto isSeen = [&] {
        QLineEdit& field = Field(kSignedBox);
        field.grab();
        const QRect place = field.inputMethodQuery(Qt::ImCursorRectangle).toRect();
        return field.cursorPosition() == end && place.center().x() > 0 && place.center().x() < field.width();
    };
    address->ShowSigned(u"https://short.example/" + Text(300, u'c'), {{u"x"}, u"x", {}, false, {8, 13}});
    EXPECT_EQ(Field(kSignedBox).cursorPosition(), 0);
    address->ShowSigned(Text(text), sign);
    EXPECT_TRUE(isSeen());
    Box(kSignedBox).setFocus();
    QTest::keyClick(&Box(kSignedBox), Qt::Key_End);
    Field(kSignedBox).grab();
    EXPECT_FALSE(isSeen());
    Box(u"cboSearch").setFocus();
    EXPECT_TRUE(isSeen()) << "though the field was scrolled to its end";
    address->Width = Pixels{150};
    QCoreApplication::processEvents();
    EXPECT_TRUE(isSeen()) << "in a narrower box";
}

TEST_F(AddressSignTest, LeavesAnInputMethodAlone) {
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    Box(kSignedBox).setFocus();
    Field(kSignedBox).selectAll();
    QInputMethodEvent composing(QStringLiteral("ka"), {});
    QCoreApplication::sendEvent(&Field(kSignedBox), &composing);
    address->ShowSigned(u"https://other.example/", SecureSign());
    QInputMethodEvent decided;
    decided.setCommitString(QStringLiteral("か"));
    QCoreApplication::sendEvent(&Field(kSignedBox), &decided);
    EXPECT_EQ(Field(kSignedBox).text(), QStringLiteral("か"));
}

TEST_F(AddressSignTest, TypingCanStillBeUndone) {
    address->ShowSigned(Text(kSecureAddress), SecureSign());
    Box(kSignedBox).setFocus();
    Field(kSignedBox).setCursorPosition(5);
    QTest::keyClicks(&Box(kSignedBox), QStringLiteral("x"));
    EXPECT_EQ(Field(kSignedBox).cursorPosition(), 6);
    Field(kSignedBox).undo();
    EXPECT_EQ(Field(kSignedBox).text(), QString::fromUtf16(kSecureAddress.data()));
}

} // namespace

} // namespace tessa::qt
