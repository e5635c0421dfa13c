// Tests: AddressWalk, PageDocuments, PageOutput
#include "app/ScriptedWindow.h"
#include "qt/base/Strings.h"
#include "qt/downloads/EngineDownloads.h"
#include "qt/engine/PageView.h"
#include "qt/script/AddressWalk.h"
#include "qt/script/GroupOutput.h"
#include "tests/engine/CommandsOnPages.h"
#include "tests/engine/FakeDownloadSource.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QRadioButton>
#include <QSpinBox>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebEngineProfile>
#include <chrono>
#include <memory>
#include <optional>
#include <string_view>

namespace tessa::qt {

namespace {

QByteArray RedPdf() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter(&writer).fillRect(0, 0, writer.width(), writer.height(), Qt::red);
    return bytes;
}

QByteArray SmallPng() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::WriteOnly);
    QImage picture(9, 9, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.save(&buffer, "PNG");
    return bytes;
}

/// Documents on the real engine, with a list of downloads, saved and printed in the dialogs that a user sees.
class PageDocuments : public CommandsOnPages {
protected:
    PageDocuments() {
        desktop.BringTo(downloads);
        source.documents = [this]() -> qt::PageDocuments& { return desk.engine.Output().Documents(); };
        source.profile = [this] { return desk.engine.Profiles().Get(); };
        // What a page saves by itself is refused; what its user saves is not asked about.
        source.maySave = [](QWebEnginePage*, const QUrl&) { return false; };
        desk.engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& profile) { desktop.Follow(profile); });
        Serve("/red.pdf", "application/pdf", pdf);
        Serve("/dot", "image/png", SmallPng());
        Serve("/words.txt", "text/plain", "plain <b> words\n");
        Serve("/data", "application/json", "{\"a\": 1}");
        Serve("/fresh.pdf", "application/pdf", pdf, "Cache-Control: no-store\r\n");
    }
    ~PageDocuments() override {
        desk.main->Form_Unload();
        desktop.Shutdown();
    }
    void Serve(const char* path, const QByteArray& type, const QByteArray& body, const QByteArray& more = {}) {
        server.Raw(QLatin1String(path), "HTTP/1.1 200 OK\r\nContent-Type: " + type + "\r\nConnection: close\r\n" +
                                            more + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
                                            body);
    }
    void Visit(const QString& path) {
        ResumeNext(Front().Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitUntil([&] {
            return Front().LocationURL() == FromQt(server.Address(path)) && !Front().Busy() && Front().Page() &&
                   !Front().Page()->AwaitsAny();
        }));
    }
    /// Once a dialog of that kind is open.
    template<typename Dialog>
    void In(const std::function<void(Dialog&)>& answer) {
        auto* timer = new QTimer(&desk.window);
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, answer] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer->stop();
            timer->deleteLater();
            answer(*dialog);
            ++answered;
        });
        timer->start(10);
    }
    /// Clicks what brings up a dialog, which comes later and is answered.
    void ClickAndAnswer(TextView tool) {
        const int before = answered;
        Click(tool);
        // What it has to complain about stays.
        const auto goneOrComplaint = [] {
            auto* modal = QApplication::activeModalWidget();
            return !modal || qobject_cast<QMessageBox*>(modal);
        };
        ASSERT_TRUE(WaitUntil([&] { return answered > before && goneOrComplaint(); }));
    }
    /// Saves what is in front under the name that the dialog suggests. Returns the name and the kinds of file offered.
    std::string SaveAs() {
        QString offered;
        In<QFileDialog>([&](QFileDialog& dialog) {
            const QString name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
            offered = name + QStringLiteral(": ") + dialog.nameFilters().join(QStringLiteral(", "));
            dialog.setDirectory(folder.path());
            dialog.selectFile(name);
            static_cast<QDialog&>(dialog).accept();
        });
        ClickAndAnswer(u"mnuSaveAs");
        return offered.toStdString();
    }
    void PrintTo(const QString& path) {
        In<QPrintDialog>([path](QPrintDialog& dialog) {
            auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
            ASSERT_NE(file, nullptr);
            file->setText(path);
            dialog.accept();
        });
        ClickAndAnswer(u"mnuPrint");
    }
    bool Ended(DownloadState state) {
        return WaitUntil([&] { return downloads.All().size() == 1 && downloads.All().front().Report.State == state; });
    }
    [[nodiscard]] QByteArray Written(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    const QByteArray pdf = RedPdf();
    int answered = 0; ///< dialogs
    QTemporaryDir folder;
    FakeDownloadSource source;
    EngineDownloads desktop{source};
    Downloads downloads{desktop, {}};
};

struct DocumentRow {
    const char* path;
    const char* offered;
    const char* file;
};

class SavedDocuments : public PageDocuments, public testing::WithParamInterface<DocumentRow> {};

TEST_P(SavedDocuments, AreTheBytesThatCame) {
    Visit(QLatin1String(GetParam().path));
    const QByteArray body = [this] {
        const QString path = QString::fromLatin1(GetParam().path).section(u'#', 0, 0);
        if (path.endsWith(u".pdf")) return pdf;
        if (path == u"/dot") return SmallPng();
        return path == u"/data" ? QByteArray("{\"a\": 1}") : QByteArray("plain <b> words\n");
    }();
    EXPECT_EQ(SaveAs(), GetParam().offered);
    ASSERT_TRUE(Ended(DownloadState::Done));
    EXPECT_EQ(Written(QLatin1String(GetParam().file)), body);
    EXPECT_EQ(downloads.All().front().Path, FromQt(folder.filePath(QLatin1String(GetParam().file))));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, SavedDocuments,
    testing::Values(DocumentRow{"/red.pdf", "red.pdf: PDF document (*.pdf)", "red.pdf"},
                    DocumentRow{"/red.pdf#page=1", "red.pdf: PDF document (*.pdf)", "red.pdf"},
                    DocumentRow{"/fresh.pdf", "fresh.pdf: PDF document (*.pdf)", "fresh.pdf"},
                    DocumentRow{"/dot", "dot.png: Picture (*.png), PDF document (*.pdf)", "dot.png"},
                    DocumentRow{"/words.txt", "words.txt: Text (*.txt), PDF document (*.pdf)", "words.txt"},
                    DocumentRow{"/data", "data.json: Text (*.json), PDF document (*.pdf)", "data.json"}),
    [](const auto& info) { return "row" + std::to_string(info.index); });

TEST_F(PageDocuments, ThatLieInTheCacheAreNotFetchedAgain) {
    Visit(QStringLiteral("/red.pdf"));
    const auto before = server.requests.size();
    SaveAs();
    ASSERT_TRUE(Ended(DownloadState::Done));
    EXPECT_EQ(server.requests.size(), before);
}

TEST_F(PageDocuments, ReplaceTheFileThatIsThere) {
    QFile old(folder.filePath(QStringLiteral("red.pdf")));
    ASSERT_TRUE(old.open(QFile::WriteOnly));
    old.write(QByteArray(100000, 'x'));
    old.close();
    Visit(QStringLiteral("/red.pdf"));
    // The dialog asks, and is answered with yes.
    QTimer yes;
    yes.callOnTimeout([] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box) box->button(QMessageBox::Yes)->click();
    });
    yes.start(10);
    SaveAs();
    ASSERT_TRUE(Ended(DownloadState::Done));
    EXPECT_EQ(Written(QStringLiteral("red.pdf")), pdf);
}

TEST_F(PageDocuments, WhatCannotBeHadAnyMoreIsABrokenDownload) {
    Visit(QStringLiteral("/fresh.pdf"));
    server.Raw(QStringLiteral("/fresh.pdf"), "HTTP/1.1 404 Gone\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    SaveAs();
    EXPECT_TRUE(Ended(DownloadState::Broken));
}

TEST_F(PageDocuments, OfAnotherKindBehindTheDialogAreNotSavedAsWhatWasThere) {
    server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
    for (const auto& [before, after] :
         {std::pair("/page", "/red.pdf"), std::pair("/red.pdf", "/page"), std::pair("/fresh.pdf", "/red.pdf")}) {
        Visit(QLatin1String(before));
        In<QFileDialog>([this, after = after](QFileDialog& dialog) {
            Visit(QLatin1String(after));
            dialog.selectFile(folder.filePath(QStringLiteral("chosen")));
            static_cast<QDialog&>(dialog).accept();
        });
        ClickAndAnswer(u"mnuSaveAs");
        const auto box = [this] { return desk.window.findChild<QMessageBox*>(); };
        ASSERT_TRUE(WaitUntil([&] { return box() && box()->isVisible(); })) << before;
        EXPECT_EQ(box()->text(), u"The page has changed meanwhile. Nothing was saved.");
        delete box();
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).join(u','), QString()) << before;
    }
}

TEST_F(PageDocuments, APictureMayBecomeAPdf) {
    Visit(QStringLiteral("/dot"));
    In<QFileDialog>([this](QFileDialog& dialog) {
        dialog.selectFile(folder.filePath(QStringLiteral("dot.pdf")));
        static_cast<QDialog&>(dialog).accept();
    });
    QStringList said;
    desk.engine.Output().Say.ConnectForLife([&](const QString& words) { said << words; });
    ClickAndAnswer(u"mnuSaveAs");
    EXPECT_TRUE(WaitUntil([this] { return Written(QStringLiteral("dot.pdf")).startsWith("%PDF-"); }));
    EXPECT_TRUE(WaitUntil([&] { return said.size() == 2; }));
    EXPECT_EQ(said.join(u'|'), u"Saving dot.pdf|dot.pdf has been saved.");
}

TEST_F(PageDocuments, APdfIsPrintedAsItIsAndIsInNoList) {
    Visit(QStringLiteral("/red.pdf"));
    PrintTo(folder.filePath(QStringLiteral("paper.pdf")));
    EXPECT_TRUE(WaitUntil([this] { return Written(QStringLiteral("paper.pdf")) == pdf; }));
    EXPECT_TRUE(downloads.All().empty());
}

// Its address does not say what it is; the page has to.
TEST_F(PageDocuments, OfAGroupThatIsNotOpenAreTakenAsTheyAre) {
    server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
    Serve("/paper", "application/pdf", pdf);
    PageReads reads(desk.engine);
    AddressWalk walk(desk.engine, reads);
    std::vector<QByteArray> taken;
    bool ended = false;
    const auto take = [&](const ScriptTab& page, const std::function<void()>& next) {
        reads.Pdf(static_cast<std::int32_t>(page.number), [&taken, next](const PrintedPage& printed) {
            taken.push_back(printed.pdf);
            next();
        });
    };
    const auto address = [this](const char* path) { return FromQt(server.Address(QLatin1String(path))); };
    walk.Go({address("/page"), address("/paper")}, {take, [&](const auto& left) { ended = left.empty(); }});
    EXPECT_TRUE(WaitUntil([&ended] { return ended; }));
    walk.Shutdown();
    ASSERT_EQ(taken.size(), 2U);
    EXPECT_TRUE(taken[0].startsWith("%PDF-"));
    EXPECT_EQ(taken[1], pdf);
    EXPECT_TRUE(downloads.All().empty());
}

TEST_F(PageDocuments, AreReadWithoutTheMarksOfFoundPassages) {
    server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
    Visit(QStringLiteral("/page"));
    Front().Reading()->ShowPassages({u"words"}, 0);
    ASSERT_TRUE(
        WaitUntil([this] { return Script(QStringLiteral("!!document.querySelector('tessa-marks')")) == u"true"; }));
    PageReads reads(desk.engine);
    const auto html = std::make_shared<QString>();
    reads.Html(desk.main->pcPage.SelectedItem()->Tag, [html](const QString& read) { *html = read; });
    ASSERT_TRUE(WaitUntil([&html] { return html->contains(u"words"); }));
    EXPECT_FALSE(html->contains(u"tessa-marks")) << html->toStdString();
}

/// Some pages become one PDF. One of them waits for a server that does not answer, as soon as it is printed.
class StuckPages : public PageDocuments {
protected:
    StuckPages() {
        server.Stall(QStringLiteral("/held"));
        server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
        server.Page(QStringLiteral("/more"), "<title>more</title><p>more</p>");
        server.Page(QStringLiteral("/stuck"),
                    "<title>stuck</title><p>stuck</p><script>addEventListener('beforeprint', () => {"
                    "const held = new XMLHttpRequest(); held.open('GET', '/held', false); held.send(); });</script>");
    }
    // A page that is printed stays until the engine is done with it.
    ~StuckPages() override {
        walk.Shutdown();
        for (auto* held : server.findChildren<QTcpSocket*>()) held->abort();
    }
    [[nodiscard]] Text Address(const char* path) const { return FromQt(server.Address(QLatin1String(path))); }
    [[nodiscard]] bool Stuck() const { return server.requests.contains(QStringLiteral("/held")); }
    void Write(PageReads& reads, const std::vector<const char*>& paths) {
        GroupOutput::Pages pages;
        pages.unopened.emplace();
        for (const char* each : paths) pages.unopened->push_back(Address(each));
        output = std::make_unique<GroupOutput>(reads, tabs, walk);
        output->Pdf(pages, File(), {[this](const GroupOutput::Result& done) { result = done; }, {}, &stop});
    }
    [[nodiscard]] QString File() const { return folder.filePath(QStringLiteral("all.pdf")); }

    PageReads patient{desk.engine};
    AddressWalk walk{desk.engine, patient};
    ScriptedWindow window{*desk.main, desk.frame};
    LoadWaits waits{window};
    TabWalk tabs{window, patient, waits};
    Signal<void()> stop;
    std::unique_ptr<GroupOutput> output;
    std::optional<GroupOutput::Result> result;
};

TEST_F(StuckPages, AreLeftOutAndNamedAndTheOthersAreThere) {
    PageReads hasty(desk.engine, std::chrono::seconds(10));
    Write(hasty, {"/page", "/stuck", "/more"});
    ASSERT_TRUE(WaitUntil([this] { return Stuck(); }));
    ASSERT_TRUE(WaitUntil([this] { return result.has_value(); }));
    EXPECT_EQ(result->refusal, QString());
    EXPECT_EQ(result->left.join(u','), server.Address(QStringLiteral("/stuck")));
    EXPECT_TRUE(Written(QStringLiteral("all.pdf")).startsWith("%PDF-"));
}

TEST_F(StuckPages, AreNotWaitedForWhenTheUserStops) {
    QFile old(File());
    ASSERT_TRUE(old.open(QFile::WriteOnly));
    old.write("old");
    old.close();
    Write(patient, {"/page", "/stuck", "/more"});
    ASSERT_TRUE(WaitUntil([this] { return Stuck(); }));
    EXPECT_FALSE(result);
    stop();
    ASSERT_TRUE(WaitUntil([this] { return result.has_value(); }));
    EXPECT_EQ(result->refusal, u"Stopped before it was done. Nothing was written.");
    EXPECT_EQ(Written(QStringLiteral("all.pdf")), "old");
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/more")));
}

TEST_F(StuckPages, ThatLoadForEverAreNotWaitedForEither) {
    server.Stall(QStringLiteral("/never"));
    Write(patient, {"/never", "/page"});
    ASSERT_TRUE(WaitUntil([this] { return server.requests.contains(QStringLiteral("/never")); }));
    stop();
    ASSERT_TRUE(WaitUntil([this] { return result.has_value(); }));
    EXPECT_EQ(result->refusal, u"Stopped before it was done. Nothing was written.");
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/page")));
}

TEST_F(StuckPages, InTabsAreNotWaitedForWhenTheUserStops) {
    for (const char* path : {"/never", "/stuck"}) {
        server.Stall(QStringLiteral("/never"));
        result.reset();
        ResumeNext(Front().Navigate(Address(path)));
        ASSERT_TRUE(WaitUntil([this, path] { return server.requests.contains(QLatin1String(path)); }));
        output = std::make_unique<GroupOutput>(patient, tabs, walk);
        output->Pdf({}, File(), {[this](const GroupOutput::Result& done) { result = done; }, {}, &stop});
        if (path == std::string_view("/stuck")) {
            ASSERT_TRUE(WaitUntil([this] { return Stuck(); }));
        }
        stop();
        ASSERT_TRUE(WaitUntil([this] { return result.has_value(); })) << path;
        EXPECT_EQ(result->refusal, u"Stopped before it was done. Nothing was written.");
        EXPECT_EQ(Written(QStringLiteral("all.pdf")), "(no file)");
    }
}

TEST_F(PageDocuments, APageIsPrintedByTheEngine) {
    server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
    Visit(QStringLiteral("/page"));
    PrintTo(folder.filePath(QStringLiteral("paper.pdf")));
    EXPECT_TRUE(WaitUntil([this] { return Written(QStringLiteral("paper.pdf")).startsWith("%PDF-"); }));
}

TEST_F(PageDocuments, SomeSheetsOfAPageAreWrittenToAFile) {
    server.Page(QStringLiteral("/page"),
                "<title>page</title><p style='break-after: page'>one<p style='break-after: page'>two<p>three");
    Visit(QStringLiteral("/page"));
    const auto sheets = [this](const QString& name, const std::function<void(QPrintDialog&)>& choose) {
        In<QPrintDialog>([this, name, choose](QPrintDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->setText(folder.filePath(name));
            choose(dialog);
            dialog.accept();
        });
        ClickAndAnswer(u"mnuPrint");
        EXPECT_TRUE(WaitUntil([&] { return Written(name).startsWith("%PDF-"); })) << name.toStdString();
        return Written(name).count("/Type /Page\n");
    };
    EXPECT_EQ(sheets(QStringLiteral("all.pdf"), [](QPrintDialog&) {}), 3);
    const auto secondAndThird = [](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("printRange"))->setChecked(true);
        dialog.findChild<QSpinBox*>(QStringLiteral("to"))->setValue(3);
        dialog.findChild<QSpinBox*>(QStringLiteral("from"))->setValue(2);
    };
    EXPECT_EQ(sheets(QStringLiteral("some.pdf"), secondAndThird), 2);
}

TEST_F(PageDocuments, APdfIsItsOwnPreviewWhichCanBeSavedAndPrinted) {
    Visit(QStringLiteral("/red.pdf"));
    Click(u"xtrPrintPreview");
    // The address is known before there is a page.
    ASSERT_TRUE(WaitUntil([this] {
        return Front().Page() && Front().Page()->ShownAddress().scheme() == u"tessaview" && !Front().Busy();
    }));
    SaveAs();
    EXPECT_TRUE(WaitUntil([this] {
        const QStringList saved = QDir(folder.path()).entryList(QDir::Files);
        return saved.size() == 1 && saved.front().endsWith(u".pdf") && Written(saved.front()) == pdf;
    }));
    PrintTo(folder.filePath(QStringLiteral("printed.pdf")));
    EXPECT_TRUE(WaitUntil([this] { return Written(QStringLiteral("printed.pdf")) == pdf; }));
}

TEST_F(PageDocuments, ThePageMayGoBehindTheDialog) {
    Visit(QStringLiteral("/red.pdf"));
    In<QFileDialog>([this](QFileDialog& dialog) {
        Click(u"mnuNewBlank");
        desk.main->CloseBrowserTab(1);
        dialog.selectFile(folder.filePath(QStringLiteral("red.pdf")));
        static_cast<QDialog&>(dialog).accept();
    });
    ClickAndAnswer(u"mnuSaveAs");
    Visit(QStringLiteral("/words.txt"));
    EXPECT_TRUE(downloads.All().empty());
}

TEST_F(PageDocuments, WhatAPageSavesOfItselfMeanwhileIsStillAskedAbout) {
    server.Page(QStringLiteral("/page"), "<title>page</title><a id=a download href='/red.pdf'>x</a>");
    Visit(QStringLiteral("/page"));
    // The engine does not bear that one comes when its profile goes.
    int wanted = 0;
    QObject::connect(desk.engine.Profiles().Get(), &QWebEngineProfile::downloadRequested, &desk.window,
                     [&] { ++wanted; });
    Script(QStringLiteral("a.click(); 1"));
    ASSERT_TRUE(WaitUntil([&] { return wanted == 1; }));
    Settle(desk.engine, Front().Page());
    EXPECT_TRUE(downloads.All().empty());
}

} // namespace

} // namespace tessa::qt
