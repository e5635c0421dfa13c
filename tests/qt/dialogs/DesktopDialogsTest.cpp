#include "qt/dialogs/DesktopDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// Runs `act` on the modal window as soon as one is on the screen.
template<typename Window>
class OnModal {
public:
    explicit OnModal(std::function<void(Window&)> act) : m_act(std::move(act)) {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (!window || !window->isVisible()) return;
            m_timer.stop();
            m_act(*window);
        });
        m_timer.start(5);
    }

private:
    std::function<void(Window&)> m_act;
    QTimer m_timer;
};

Answer AnswerWith(QMessageBox::StandardButton button) {
    OnModal<QMessageBox> user([button](QMessageBox& box) { box.button(button)->click(); });
    return DesktopMessageBoxes().AskYesNoCancel(u"Really?");
}

TEST(DesktopMessageBoxes, EachButtonIsItsAnswer) {
    EXPECT_EQ(AnswerWith(QMessageBox::Yes), Answer::Yes);
    EXPECT_EQ(AnswerWith(QMessageBox::No), Answer::No);
    EXPECT_EQ(AnswerWith(QMessageBox::Cancel), Answer::Cancel);
}

TEST(DesktopMessageBoxes, EscapeAndClosingAnswerCancelAndEnterAnswersYes) {
    {
        OnModal<QMessageBox> user([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(DesktopMessageBoxes().AskYesNoCancel(u"Really?"), Answer::Cancel);
    }
    {
        OnModal<QMessageBox> user([](QMessageBox& box) { box.close(); });
        EXPECT_EQ(DesktopMessageBoxes().AskYesNoCancel(u"Really?"), Answer::Cancel);
    }
    OnModal<QMessageBox> user([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(DesktopMessageBoxes().AskYesNoCancel(u"Really?"), Answer::Yes);
}

TEST(DesktopMessageBoxes, WithOwnAnswersAndCancelEnterKeepsAndEscapeCancels) {
    const OwnQuestion question{u"Really?", u"Truly.", u"&Leave", u"&Take"};
    {
        OnModal<QMessageBox> user([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(DesktopMessageBoxes().AskOwnOrCancel(question), Answer::No);
    }
    {
        OnModal<QMessageBox> user([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(DesktopMessageBoxes().AskOwnOrCancel(question), Answer::Cancel);
    }
    OnModal<QMessageBox> user([](QMessageBox& box) {
        EXPECT_EQ(box.informativeText(), QStringLiteral("Truly."));
        for (auto* each : box.buttons()) {
            if (each->text() == QStringLiteral("&Take")) each->click();
        }
    });
    EXPECT_EQ(DesktopMessageBoxes().AskOwnOrCancel(question), Answer::Yes);
}

TEST(DesktopMessageBoxes, AQuestionWithItsOwnAnswersGoesOnOnlyByTheButtonForThat) {
    const OwnQuestion question{u"Really?", u"one\ntwo", u"&Stay", u"&Leave"};
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        OnModal<QMessageBox> user([key](QMessageBox& box) { QTest::keyClick(&box, static_cast<Qt::Key>(key)); });
        EXPECT_FALSE(DesktopMessageBoxes().AskOwn(question));
    }
    {
        OnModal<QMessageBox> user([](QMessageBox& box) { box.close(); });
        EXPECT_FALSE(DesktopMessageBoxes().AskOwn(question));
    }
    QString details;
    bool plain = true, links = false;
    OnModal<QMessageBox> user([&](QMessageBox& box) {
        details = box.informativeText();
        for (const auto* label : box.findChildren<QLabel*>()) {
            plain = plain && label->textFormat() == Qt::PlainText;
            links = links || label->openExternalLinks();
        }
        for (auto* each : box.buttons()) {
            if (each->text() == u"&Leave") return each->click();
        }
    });
    EXPECT_TRUE(DesktopMessageBoxes().AskOwn(question));
    EXPECT_EQ(details, u"one\ntwo");
    EXPECT_TRUE(plain && !links) << "a page's name is no markup";
}

TEST(DesktopMessageBoxes, TheQuestionIsTextUnderTheApplicationsTitle) {
    QGuiApplication::setApplicationDisplayName(QStringLiteral("TessaView"));
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    OnModal<QMessageBox> user([&](QMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        icon = box.icon();
        format = box.textFormat();
        box.close();
    });
    (void)DesktopMessageBoxes().AskYesNoCancel(u"<b>Really?</b>");
    EXPECT_EQ(title, QStringLiteral("TessaView"));
    EXPECT_EQ(text, QStringLiteral("<b>Really?</b>"));
    EXPECT_EQ(icon, QMessageBox::Question);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST(DesktopFileDialogs, PairsOfDescriptionAndPatternsBecomeQtFilters) {
    EXPECT_EQ(NameFilters(u"TessaGroup File (*.tvg)|*.tvg"),
              QStringList{QStringLiteral("TessaGroup File (*.tvg) (*.tvg)")});
    EXPECT_EQ(NameFilters(u"HTML Files (*.htm, *.html)|*.htm; *.html|All Files (*.*)|*.*"),
              (QStringList{QStringLiteral("HTML Files (*.htm, *.html) (*.htm *.html)"),
                           QStringLiteral("All Files (*.*) (*)")}));
    EXPECT_EQ(NameFilters(u"Plain|*.txt"), QStringList{QStringLiteral("Plain (*.txt)")});
}

TEST(DesktopFileDialogs, AFilterThatIsNoneGivesNone) {
    EXPECT_TRUE(NameFilters(u"").isEmpty());
    EXPECT_TRUE(NameFilters(u"Only a description").isEmpty());
    EXPECT_TRUE(NameFilters(u"Empty| ; ").isEmpty());
    EXPECT_EQ(NameFilters(u"A|*.a|odd"), QStringList{QStringLiteral("A (*.a)")});
}

TEST(DesktopFileDialogs, TheChosenFileIsTheAnswer) {
    QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath(QStringLiteral("news.tvg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const FileDialogRequest request{u"Open TessaGroup", folder.path().toStdU16String(),
                                    u"TessaGroup File (*.tvg)|*.tvg", true};
    QString title;
    OnModal<QFileDialog> user([&](QFileDialog& dialog) {
        title = dialog.windowTitle();
        auto* name = dialog.findChild<QLineEdit*>();
        name->setText(QStringLiteral("news.tvg"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(DesktopFileDialogs().ShowOpen(request), path.toStdU16String());
    EXPECT_EQ(title, QStringLiteral("Open TessaGroup"));
}

TEST(DesktopFileDialogs, TheColumnOfTheNamesTakesTheRoomAndTheOthersWhatTheyNeed) {
    const QTemporaryDir folder;
    QFile file(QDir(folder.path()).filePath(QStringLiteral("A TessaGroup with a name that is rather long.tvg")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    OnModal<QFileDialog> user([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        dialog.setViewMode(QFileDialog::Detail);
        const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
        const auto* header = list->header();
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
        EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Stretch);
        EXPECT_TRUE(QTest::qWaitFor([&] { return header->length() == list->viewport()->width(); }));
        for (int column = 1; column < header->count(); ++column)
            EXPECT_LT(header->sectionSize(column), header->sectionSize(0)) << column;
        dialog.reject();
    });
    (void)DesktopFileDialogs().ShowOpen(
        {u"Open", folder.path().toStdU16String(), u"TessaGroup File (*.tvg)|*.tvg", true});
}

TEST(DesktopFileDialogs, TheKindsOfFilesAreShownInTheWordsOfTheFilter) {
    const QTemporaryDir folder;
    for (const char* name : {"a.htm", "b.html", "c", "d.txt"}) {
        QFile file(QDir(folder.path()).filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    QStringList kinds, pages;
    const auto listed = [](QFileDialog& dialog) {
        const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
        QStringList names;
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            names << list->model()->index(row, 0, list->rootIndex()).data().toString();
        return names;
    };
    OnModal<QFileDialog> user([&](QFileDialog& dialog) {
        auto* kind = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        for (int i = 0; i < kind->count(); ++i) kinds << kind->itemText(i);
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog).size() == 2; }));
        pages = listed(dialog);
        pages.sort();
        QTest::keyClick(kind, Qt::Key_Down);
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog).size() == 4; }));
        dialog.reject();
    });
    (void)DesktopFileDialogs().ShowOpen(
        {u"Open", folder.path().toStdU16String(), u"HTML Files (*.htm, *.html)|*.htm; *.html|All Files (*.*)|*.*"});
    EXPECT_EQ(kinds, (QStringList{QStringLiteral("HTML Files (*.htm, *.html)"), QStringLiteral("All Files (*.*)")}));
    EXPECT_EQ(pages, (QStringList{QStringLiteral("a.htm"), QStringLiteral("b.html")}));
}

TEST(DesktopFileDialogs, CancellingAnswersNothing) {
    OnModal<QFileDialog> user([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(DesktopFileDialogs().ShowOpen({}), Text());
}

TEST(DesktopMessageBoxes, AMessageIsTextWithTheInformationIcon) {
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    OnModal<QMessageBox> user([&](QMessageBox& box) {
        text = box.text();
        icon = box.icon();
        buttons = box.standardButtons();
        box.close();
    });
    DesktopMessageBoxes().Inform(u"<i>So it is.</i>");
    EXPECT_EQ(text, QStringLiteral("<i>So it is.</i>"));
    EXPECT_EQ(icon, QMessageBox::Information);
    EXPECT_EQ(buttons, QMessageBox::Ok);
}

TEST(DesktopFileDialogs, ANameWithoutAnEndingIsOfTheOnlyKind) {
    const QTemporaryDir folder;
    const auto typed = [&](const char16_t* filter, const QString& name) {
        OnModal<QFileDialog> user([&](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>();
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        const FileDialogRequest request{u"Save", folder.path().toStdU16String(), filter};
        return QDir(folder.path()).relativeFilePath(QString::fromStdU16String(DesktopFileDialogs().ShowSave(request)));
    };
    EXPECT_EQ(typed(u"TessaGroup File (*.tvg)|*.tvg", QStringLiteral("News")), QStringLiteral("News.tvg"));
    EXPECT_EQ(typed(u"TessaGroup File (*.tvg)|*.tvg", QStringLiteral("News.txt")), QStringLiteral("News.txt"));
    EXPECT_EQ(typed(u"Pages|*.htm;*.html", QStringLiteral("page")), QStringLiteral("page"));
}

} // namespace

} // namespace tessa::qt
