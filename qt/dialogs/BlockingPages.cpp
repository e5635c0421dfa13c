#include "qt/dialogs/BlockingPages.h"

#include "blocking/ListCatalogue.h"
#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

namespace {

const QColor kErrorOnDark(255, 120, 110);
constexpr int kListsLines = 11, kRulesLines = 9, kSitesLines = 4;

// Lines of text as the form has them.
QPlainTextEdit* NewLines(TextBox& box, const char* name, const QString& accessibleName, int lines) {
    auto* edit = new QPlainTextEdit;
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAccessibleName(accessibleName);
    edit->setTabChangesFocus(true);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setMinimumHeight(edit->fontMetrics().lineSpacing() * lines);
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                     [edit, &box] { box.Value = FromQt(edit->toPlainText()); });
    KeepWith(*edit, box.Value.Attach([edit](const Text& text) {
        if (FromQt(edit->toPlainText()) != text) edit->setPlainText(ToQt(text));
    }));
    return edit;
}

QLabel* NewCaption(Label& label, const char* name, QWidget& buddy, char16_t accessKey) {
    auto* caption = new QLabel;
    caption->setBuddy(&buddy);
    Bind(label, *caption, QString::fromLatin1(name), accessKey);
    return caption;
}

QLabel* NewWords(Label& label, const QString& name) {
    auto* words = new QLabel;
    Bind(label, *words, name);
    words->setWordWrap(true);
    return words;
}

// What a list does stands below its name, in line with it.
void AddListLine(QVBoxLayout& rows, BlockingListLine& line, int place) {
    auto* box = new QCheckBox;
    const QString name = QStringLiteral("chkList") + ToQt(line.Chosen);
    Bind(line.chkList, *box, name);
    box->setText(box->text().replace(u'&', QStringLiteral("&&")));
    auto* words =
        new QLabel(ToQt(line.lblState.Caption().empty() ? line.lblDoes.Caption()
                                                        : line.lblDoes.Caption() + u" " + line.lblState.Caption()));
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setContentsMargins(box->fontMetrics().height() * 3 / 2, 0, 0, box->fontMetrics().height() / 4);
    box->setAccessibleDescription(words->text());
    rows.insertWidget(place, box);
    rows.insertWidget(place < 0 ? -1 : place + 1, words);
}

QScrollArea* NewListLines(frmBlocking& form) {
    auto* area = new QScrollArea;
    auto* inside = new QWidget;
    auto* rows = new QVBoxLayout(inside);
    for (const auto& each : form.Lists) AddListLine(*rows, *each, ListCatalogue::Find(each->Chosen) ? -1 : 0);
    area->setObjectName(QStringLiteral("lstLists"));
    area->setWidget(inside);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumHeight(area->fontMetrics().lineSpacing() * kListsLines);
    // What was added is seen at once.
    KeepWith(*area, form.Added.Connect([rows, area](BlockingListLine& line) {
        AddListLine(*rows, line, 0);
        area->verticalScrollBar()->setValue(0);
    }));
    return area;
}

void AddRow(QVBoxLayout& rows, std::initializer_list<QWidget*> parts) {
    auto* row = new QHBoxLayout;
    for (QWidget* each : parts) row->addWidget(each, qobject_cast<QLineEdit*>(each) ? 1 : 0);
    if (!qobject_cast<QLineEdit*>(*parts.begin())) row->addStretch();
    rows.addLayout(row);
}

// A wavy line under each line that is no rule.
void MarkBadLines(QPlainTextEdit& edit, const std::vector<std::size_t>& lines) {
    QList<QTextEdit::ExtraSelection> marks;
    for (const std::size_t each : lines) {
        const QTextBlock block = edit.document()->findBlockByNumber(static_cast<int>(each));
        if (!block.isValid()) continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.cursor.select(QTextCursor::LineUnderCursor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(Palette::IsDark(edit.palette()) ? kErrorOnDark : QColor(Qt::red));
        marks << mark;
    }
    edit.setExtraSelections(marks);
}

} // namespace

namespace BlockingPages {

QWidget* NewLists(frmBlocking& form) {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(NewCheckBox(form.chkOn, "chkOn", u'A'));
    auto* lists = NewListLines(form);
    rows->addWidget(NewCaption(form.lblLists, "lblLists", *lists, u'S'));
    rows->addWidget(lists, 1);
    auto* own = new QLineEdit;
    rows->addWidget(NewCaption(form.lblOwnList, "lblOwnList", *own, u'T'));
    Bind(form.txtOwnList, *own, QStringLiteral("txtOwnList"), ToQt(form.lblOwnList.Caption()));
    AddRow(*rows,
           {own, NewButton(form.cmdAddList, "cmdAddList", u'D'), NewButton(form.cmdAddFile, "cmdAddFile", u'F')});
    rows->addWidget(NewWords(form.lblOwnListBad, QStringLiteral("lblOwnListBad")));
    AddRow(*rows,
           {NewButton(form.cmdUpdate, "cmdUpdate", u'U'), NewWords(form.lblUpdated, QStringLiteral("lblUpdated"))});
    return page;
}

QWidget* NewOwnRules(frmBlocking& form) {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    auto* rules = NewLines(form.txtOwnRules, "txtOwnRules", ToQt(form.lblOwnRules.Caption()), kRulesLines);
    rows->addWidget(NewCaption(form.lblOwnRules, "lblOwnRules", *rules, u'R'));
    rows->addWidget(rules, 2);
    auto* bad = NewWords(form.lblOwnRulesBad, QStringLiteral("lblOwnRulesBad"));
    rows->addWidget(bad);
    KeepWith(*rules, form.lblOwnRulesBad.Caption.Attach(
                         [rules, &form](const Text&) { MarkBadLines(*rules, form.BadLines()); }));
    auto* sites = NewLines(form.txtOffSites, "txtOffSites", ToQt(form.lblOffSites.Caption()), kSitesLines);
    rows->addWidget(NewCaption(form.lblOffSites, "lblOffSites", *sites, u'S'));
    rows->addWidget(sites, 1);
    return page;
}

} // namespace BlockingPages

} // namespace tessa::qt
