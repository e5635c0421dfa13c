#include "base/Captions.h"
#include "commands/CommandTable.h"
#include "commands/DesignTimeBar.h"
#include "pages/InstanceProfiles.h"
#include "qt/base/KeyFilter.h"
#include "qt/base/Strings.h"
#include "settings/frmInternetOptions.h"
#include "settings/frmSettings.h"
#include "tests/fakes/FakeSettings.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

// Stands outside the namespace, as Qt's macro demands.
static void LoadResources() { Q_INIT_RESOURCE(tessaview); }

namespace tessa::qt {

namespace {

/// The help as it is, and as it reads without its marks.
class HelpPageTest : public testing::Test {
protected:
    void SetUp() override {
        LoadResources();
        QFile file(QStringLiteral(":/help.html"));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        m_html = QString::fromUtf8(file.readAll());
        m_words = Plain(m_html);
    }
    static QString Plain(QString html) {
        static const QRegularExpression keys(QStringLiteral("</?(kbd|b|i|code)>")), marks(QStringLiteral("<[^>]*>")),
            blanks(QStringLiteral("\\s+"));
        html.remove(keys).replace(marks, QStringLiteral(" ")).replace(blanks, QStringLiteral(" "));
        return html.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
    }
    void ExpectSays(const QString& text) const {
        EXPECT_TRUE(m_words.contains(text, Qt::CaseInsensitive)) << "the help does not say " << text.toStdString();
    }
    QString m_html, m_words;
};

TEST_F(HelpPageTest, EveryMenuOfTheMenuBarIsExplained) {
    CommandBar bar;
    DesignTimeBar::Make(bar);
    for (const BandEntry& entry : bar.FindBand(u"bndMenu")->Entries()) {
        const QString caption = ToQt(WithoutAccessKey(entry.Item->Caption()));
        EXPECT_TRUE(m_html.contains(QStringLiteral("<th scope=\"row\">%1</th>").arg(caption))) << caption.toStdString();
    }
    for (const char* other : {"Mail", "Font", "More"})
        EXPECT_TRUE(m_html.contains(QStringLiteral("<th scope=\"row\">%1</th>").arg(QLatin1String(other)))) << other;
}

TEST_F(HelpPageTest, EverySettingIsExplained) {
    FakeSettings settings;
    const frmSettings form(settings);
    for (const CheckBox* box :
         {&form.chkAllowMultipleInstances, &form.chkTabsUp, &form.chkLimitTitleLength, &form.chkCloseTessaGroups,
          &form.chkOpenNew, &form.chkAskDefaultBrowser, &form.chkRememberAndOpenLastSites})
        ExpectSays(ToQt(box->Caption));
    const frmInternetOptions options(settings, {});
    ExpectSays(ToQt(options.Caption));
    ExpectSays(ToQt(options.cmdClear.Caption()));
}

// Plus and minus are told without Shift, which some keyboards need for them.
TEST_F(HelpPageTest, EveryCombinationIsTold) {
    const qsizetype from = m_html.indexOf(QStringLiteral("<h2 id=\"keys\">"));
    const QString section = Plain(m_html.mid(from, m_html.indexOf(QStringLiteral("<h2"), from + 1) - from));
    for (const Shortcut& each : DesignedShortcuts()) {
        if (each.Key.KeyCode == Keys::kPlus && each.Key.Shift != Keys::kCtrl) continue;
        QString keys = KeyFilter::Sequence(each.Key).toString(QKeySequence::PortableText);
        keys.replace(QStringLiteral("Left"), QStringLiteral("←")).replace(QStringLiteral("Right"), QStringLiteral("→"));
        const QRegularExpression told(QStringLiteral("(?<![\\w+])%1(?![\\w+])").arg(QRegularExpression::escape(keys)));
        EXPECT_TRUE(section.contains(told)) << keys.toStdString();
    }
    for (const char* keys : {"F10", "F6", "Shift+F6", "Alt+M", "Shift+F10"}) ExpectSays(QLatin1String(keys));
}

TEST_F(HelpPageTest, EveryStateOfTheTaskViewIsExplained) {
    for (const char* state : {"In front", "In the background", "Asleep", "Not loaded", "Ended"})
        EXPECT_TRUE(m_html.contains(QStringLiteral("<dt>%1</dt><dd>").arg(QLatin1String(state)))) << state;
}

TEST_F(HelpPageTest, WhatAWindowSaysOfItsProfileIsExplained) {
    for (const int number : {0, 2}) ExpectSays(ToQt(InstanceProfiles::WordsFor(number).Sign));
}

TEST_F(HelpPageTest, EveryLinkOfTheContentsLeadsToAChapterAndEveryChapterIsListed) {
    static const QRegularExpression link(QStringLiteral("href=\"#(\\w+)\"")),
        chapter(QStringLiteral("<h2 id=\"(\\w+)\">"));
    const auto all = [this](const QRegularExpression& what) {
        QStringList found;
        for (auto each = what.globalMatch(m_html); each.hasNext();) found << each.next().captured(1);
        return found;
    };
    EXPECT_EQ(all(link), all(chapter));
    EXPECT_GT(all(chapter).size(), 5);
}

TEST_F(HelpPageTest, ThereArePicturesThatReadersWhoDoNotSeeThemCanRead) {
    EXPECT_GE(m_html.count(QStringLiteral("<svg ")), 3);
    EXPECT_EQ(m_html.count(QStringLiteral("<svg ")), m_html.count(QStringLiteral("role=\"img\" aria-label=\"")));
    EXPECT_EQ(m_html.count(QStringLiteral("<figure>")), m_html.count(QStringLiteral("<figcaption>")));
}

TEST_F(HelpPageTest, NothingIsFetchedFromElsewhere) {
    for (const char* from : {"src=", "url(", "@import", "<script", "<link"})
        EXPECT_FALSE(m_html.contains(QLatin1String(from))) << from;
}

} // namespace

} // namespace tessa::qt
