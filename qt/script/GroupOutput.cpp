#include "qt/script/GroupOutput.h"

#include "base/os/AtomicFile.h"
#include "base/os/Folder.h"
#include "base/os/Paths.h"
#include "groups/GroupOpening.h"
#include "groups/TessaGroups.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"
#include "qt/page/PageOutput.h"
#include "qt/page/WebPage.h"

#include <QTemporaryDir>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

/// A folder that fills with pages, and the group that is to open them.
struct Keeping {
    std::string group, folder;
    std::vector<TessaGroups::NumberedAddress> addresses;
};

QString Stopped() { return QStringLiteral("Stopped before it was done. Nothing was written."); }

QString AddressIn(const ScriptTab& tab) { return QString::fromStdString(tab.address); }

// What stands for itself in no address is left out.
QString FileFor(const ScriptTab& tab, std::size_t number) {
    QString name = PageOutput::FileNameFor(QString::fromStdString(tab.title));
    for (const QChar each : QStringLiteral("#%:")) name.replace(each, QLatin1Char(' '));
    return QStringLiteral("%1 %2.mhtml").arg(number, 3, 10, QLatin1Char('0')).arg(name.simplified());
}

/// Makes the folder; why it could not be, a sentence, else empty.
QString MakeRoom(Keeping& keeping, const QString& group) {
    keeping.group = PathBytes(group);
    if (!IsAbsolute(keeping.group) || !group.endsWith(ToQt(TessaGroups::kExtension)))
        return QStringLiteral("The path of a TessaGroup ends in .tvg: %1").arg(group);
    keeping.folder = keeping.group.substr(0, keeping.group.size() - TessaGroups::kExtension.size());
    if (LeadsSomewhere(keeping.group) || LeadsSomewhere(keeping.folder))
        return QStringLiteral("There is such a file or folder already: %1").arg(group);
    return MakeFolders(keeping.folder) ? QString() : QStringLiteral("The folder could not be made: %1").arg(group);
}

QString WriteGroup(const Keeping& keeping) {
    if (keeping.addresses.empty()) return QStringLiteral("No page could be kept.");
    const Text path = PathFromBytes(keeping.group);
    if (TessaGroups::Write(path, keeping.addresses) == Outcome::Done) return {};
    return QStringLiteral("The file could not be written: %1").arg(ToQt(path));
}

} // namespace

/// What is being written.
struct GroupOutput::Job {
    Told told;
    bool stopped = false;
    QStringList left{};           ///< what could not be had
    std::function<void()> next{}; ///< goes on from the page that is being had
    std::function<void()> stopsBinding{};
    std::unique_ptr<QTemporaryDir> folder{}; ///< of a PDF: the pages that are there so far, each in a file
    std::vector<PdfBinder::Part> parts{};
    Connection listening{};

    void GoOn() {
        if (const auto goes = std::exchange(next, {})) goes();
    }
    // Whatever the page still answers comes too late.
    void Stop() {
        stopped = true;
        if (stopsBinding) stopsBinding();
        GoOn();
    }
    void Miss(const std::vector<std::string>& more) {
        for (const std::string& each : more) left.append(QString::fromStdString(each));
    }
};

GroupOutput::Pages GroupOutput::UnopenedPages(const Text& group) {
    Pages pages;
    pages.unopened.emplace();
    for (const auto& each : GroupOpening::AllUnasked(group)) {
        if (each.opened.empty())
            pages.left.append(ToQt(each.address));
        else
            pages.unopened->push_back(each.opened);
    }
    return pages;
}

std::shared_ptr<GroupOutput::Job> GroupOutput::Begin(const Told& told) {
    const auto job = std::make_shared<Job>(Job{told});
    const auto stop = [known = std::weak_ptr(job)] {
        if (const auto running = known.lock()) running->Stop();
    };
    if (told.stop) job->listening = told.stop->Connect(stop);
    return job;
}

void GroupOutput::Go(const Pages& pages, PageSteps steps, const std::shared_ptr<Job>& job) {
    job->left = pages.left;
    if (job->told.progress)
        steps.progress = [job](std::size_t done, std::size_t all) { job->told.progress({done, all}); };
    steps.goesOn = [job] { return !job->stopped; };
    steps.step = [job, step = std::move(steps.step)](const ScriptTab& page, std::function<void()> next) {
        job->next = std::move(next);
        step(page, [job] { job->GoOn(); });
    };
    pages.unopened ? m_addresses.Go(*pages.unopened, std::move(steps)) : m_tabs.Go(pages.tabs, std::move(steps));
}

void GroupOutput::Pdf(const Pages& pages, const QString& file, const Told& told) {
    const auto job = Begin(told);
    job->folder = std::make_unique<QTemporaryDir>();
    const auto step = [this, job](const ScriptTab& tab, const std::function<void()>& next) {
        const auto take = [job, tab, next](const PrintedPage& printed) {
            const QString part = job->folder->filePath(QStringLiteral("%1.pdf").arg(job->parts.size()));
            const std::string_view bytes(printed.pdf.constData(), static_cast<std::size_t>(printed.pdf.size()));
            if (!bytes.empty() && WriteWholeFile(PathBytes(part), bytes) == Outcome::Done)
                job->parts.push_back({part, QString::fromStdString(tab.title), AddressIn(tab)});
            else
                job->left.append(AddressIn(tab));
            next();
        };
        m_reads.Pdf(static_cast<std::int32_t>(tab.number), take);
    };
    const auto bind = [this, job, file](const std::vector<std::string>& left) {
        job->Miss(left);
        job->stopped ? job->told.written({Stopped(), job->left}) : Bind(job, file);
    };
    Go(pages, {step, bind}, job);
}

void GroupOutput::Bind(const std::shared_ptr<Job>& job, const QString& file) {
    const auto bound = [job](const PdfBinder::Bound& done) {
        const bool stopped = job->stopped && !done.refusal.isEmpty();
        job->told.written({stopped ? Stopped() : done.refusal, job->left + done.left});
    };
    const auto progress = [job](int percent) {
        if (job->told.progress) job->told.progress({static_cast<std::size_t>(percent), 100, true});
    };
    job->stopsBinding = m_work.Bind(job->parts, file, {bound, progress});
}

void GroupOutput::Keep(const Pages& pages, const QString& group, const Told& told) {
    const auto keeping = std::make_shared<Keeping>();
    if (const QString refusal = MakeRoom(*keeping, group); !refusal.isEmpty()) return told.written({refusal, {}});
    const auto job = Begin(told);
    const auto step = [this, keeping, job](const ScriptTab& tab, const std::function<void()>& next) {
        const QString name = FileFor(tab, keeping->addresses.size() + 1);
        const QString file = QFile::decodeName(keeping->folder.c_str()) + QLatin1Char('/') + name;
        m_reads.Keep(static_cast<std::int32_t>(tab.number), file, [keeping, job, tab, name, next](bool kept) {
            const Text beside = PathFromBytes(LastNameOf(keeping->folder)) + u"/" + FromQt(name);
            if (kept)
                keeping->addresses.push_back({keeping->addresses.size() + 1, beside});
            else
                job->left.append(AddressIn(tab));
            next();
        });
    };
    const auto write = [keeping, job](const std::vector<std::string>& left) {
        job->Miss(left);
        const QString refusal = job->stopped ? Stopped() : WriteGroup(*keeping);
        if (!refusal.isEmpty()) ResumeNext(RemoveTree(keeping->folder));
        job->told.written({refusal, job->left});
    };
    Go(pages, {step, write}, job);
}

} // namespace tessa::qt
