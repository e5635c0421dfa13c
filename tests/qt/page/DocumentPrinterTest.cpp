#include "qt/page/DocumentPrinter.h"

#include <QFile>
#include <QPageRanges>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <optional>

namespace tessa::qt {

namespace {

std::string Line(const QPrinter& printer, const QStringList& chosen = {}) {
    return DocumentPrinter::Arguments(printer, chosen, QStringLiteral("/x/document.pdf")).join(u' ').toStdString();
}

TEST(DocumentPrinter, TheDialogsChoicesReachThePrintingSystem) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setDocName(QStringLiteral("A report"));
    EXPECT_EQ(Line(printer), "-t A report -n 1 -o collate=true -o sides=one-sided -o media=A4 -o fit-to-page -- "
                             "/x/document.pdf");
    printer.setCopyCount(3);
    printer.setCollateCopies(false);
    printer.setColorMode(QPrinter::GrayScale);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 4);
    EXPECT_EQ(Line(printer), "-t A report -n 3 -o collate=false -o page-ranges=2-4 -o sides=one-sided "
                             "-o media=Letter -o print-color-mode=monochrome -o fit-to-page -- /x/document.pdf");
}

struct ChosenRow {
    int from;
    QStringList chosen;
    const char* line;
};

TEST(DocumentPrinter, WhatIsChosenForThePrintingSystemAloneReachesItToo) {
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    const ChosenRow rows[]{
        {0, {text("page-ranges"), text("1,3-5")}, "-o page-ranges=1,3-5"},
        {0, {text("page-set"), text("odd")}, "-o page-set=odd"},
        {3, {text("page-set"), text("odd")}, "-o page-ranges=3-9 -o page-set=odd"},
        // The dialog counts from the first page of the range.
        {2, {text("page-set"), text("even")}, "-o page-ranges=2-9 -o page-set=odd"},
        {2, {text("page-set"), text("odd")}, "-o page-ranges=2-9 -o page-set=even"},
        {2, {text("page-set"), text("all")}, "-o page-ranges=2-9 -o page-set=all"},
        {0,
         {text("number-up"), text("4"), text("job-billing"), text("a b's")},
         "-o number-up=4 -o job-billing=a\\ b\\'s"},
        {0, {text("job-billing"), text("")}, ""},
        {0, {text("alone")}, ""},
    };
    for (const ChosenRow& row : rows) {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        if (row.from > 0) printer.setPrintRange(QPrinter::PageRange);
        if (row.from > 0) printer.setFromTo(row.from, 9);
        std::string line = Line(printer, row.chosen);
        for (const std::string_view always :
             {"-n 1 -o collate=true ", "-o sides=one-sided ", "-o media=A4 ", "-o fit-to-page -- /x/document.pdf"}) {
            ASSERT_NE(line.find(always), std::string::npos) << line;
            line.erase(line.find(always), always.size());
        }
        while (line.ends_with(' ')) line.pop_back();
        EXPECT_EQ(line, row.line);
    }
}

TEST(DocumentPrinter, TheLastPageComesFirstWhereThatIsChosen) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageOrder(QPrinter::LastPageFirst);
    EXPECT_NE(Line(printer).find("-o outputorder=reverse "), std::string::npos) << Line(printer);
}

/// A printing system that writes down what it is given.
class FakePrinting : public testing::Test {
protected:
    FakePrinting() { qputenv("PATH", folder.path().toLocal8Bit() + ":/usr/bin:/bin"); }
    ~FakePrinting() override { qputenv("PATH", m_path); }
    void Install(const QByteArray& script) {
        QFile file(folder.filePath(QStringLiteral("lp")));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("#!/bin/sh\n" + script + "\n");
        file.close();
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }
    std::optional<bool> Print() {
        QPrinter printer;
        std::optional<bool> answer;
        int answers = 0;
        DocumentPrinter::Print(printer, folder.filePath(QStringLiteral("document.pdf")), [&](bool taken) {
            answer = taken;
            ++answers;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, 30000));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(answers, 1);
        return answer;
    }

    QTemporaryDir folder;

private:
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(FakePrinting, TakesTheFileAsItIs) {
    QFile document(folder.filePath(QStringLiteral("document.pdf")));
    ASSERT_TRUE(document.open(QFile::WriteOnly));
    document.write("%PDF-1.4 bytes");
    document.close();
    Install("for file; do :; done; cp \"$file\" \"$file.printed\"");
    EXPECT_EQ(Print(), true);
    QFile printed(document.fileName() + QStringLiteral(".printed"));
    ASSERT_TRUE(printed.open(QFile::ReadOnly));
    EXPECT_EQ(printed.readAll(), "%PDF-1.4 bytes");
}

TEST_F(FakePrinting, ThatRefusesIsToldOf) {
    Install("exit 1");
    EXPECT_EQ(Print(), false);
}

TEST_F(FakePrinting, ThatIsNotThereIsToldOf) {
    qputenv("PATH", folder.path().toLocal8Bit());
    EXPECT_EQ(Print(), false);
}

} // namespace

} // namespace tessa::qt
