#include "qt/script/GroupOutput.h"

#include "base/os/AtomicFile.h"
#include "base/os/Folder.h"
#include "base/os/Paths.h"
#include "groups/GroupOpening.h"
#include "groups/TessaGroups.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"
#include "qt/page/PageOutput.h"

#include <QTemporaryDir>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

/// The pages that are there so far, each in a file.
struct Collected {
    QTemporaryDir folder;
    std::vector<PdfBinder::Part> parts;
    QStringList left;
};

/// A folder that fills with pages, and the group that is to open them.
struct Keeping {
    std::string group, folder;
    std::vector<TessaGroups::NumberedAddress> addresses;
    QStringList left;
};

void Name(QStringList& left, const std::vector<std::string>& more) {
    for (const std::string& each : more) left.append(QString::fromStdString(each));
}

QString AddressIn(const ScriptTab& tab) { return QString::fromStdString(tab.address); }

// What stands for itself in no address is left out.
QString FileFor(const ScriptTab& tab, std::size_t number) {
    QString name = PageOutput::FileNameFor(QString::fromStdString(tab.title));
    for (const QChar each : QStringLiteral("#%:")) name.replace(each, QLatin1Char(' '));
    return QStringLiteral("%1 %2.mhtml").arg(number, 3, 10, QLatin1Char('0')).arg(name.simplified());
}

/// Makes the folder; why it could not be, a sentence, else empty.
QString Begin(Keeping& keeping, const QString& group) {
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

void GroupOutput::Go(const Pages& pages, PageSteps steps, const Told& told) {
    if (told.progress)
        steps.progress = [progress = told.progress](std::size_t done, std::size_t all) { progress({done, all}); };
    pages.unopened ? m_addresses.Go(*pages.unopened, std::move(steps)) : m_tabs.Go(pages.tabs, std::move(steps));
}

void GroupOutput::Pdf(const Pages& pages, const QString& file, const Told& told) {
    const auto collected = std::make_shared<Collected>();
    collected->left = pages.left;
    const auto step = [this, collected](const ScriptTab& tab, const std::function<void()>& next) {
        const auto take = [collected, tab, next](const QByteArray& pdf) {
            const QString part = collected->folder.filePath(QStringLiteral("%1.pdf").arg(collected->parts.size()));
            const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
            if (!bytes.empty() && WriteWholeFile(PathBytes(part), bytes) == Outcome::Done)
                collected->parts.push_back({part, QString::fromStdString(tab.title), AddressIn(tab)});
            else
                collected->left.append(AddressIn(tab));
            next();
        };
        m_reads.Pdf(static_cast<std::int32_t>(tab.number), take);
    };
    const auto bind = [this, collected, file, told](const std::vector<std::string>& left) {
        Name(collected->left, left);
        const auto bound = [collected, told](const PdfBinder::Bound& done) {
            told.written({done.refusal, collected->left + done.left});
        };
        const auto progress = [told](int percent) {
            if (told.progress) told.progress({static_cast<std::size_t>(percent), 100, true});
        };
        m_work.Bind(collected->parts, file, {bound, progress});
    };
    Go(pages, {step, bind}, told);
}

void GroupOutput::Keep(const Pages& pages, const QString& group, const Told& told) {
    const auto keeping = std::make_shared<Keeping>();
    keeping->left = pages.left;
    if (const QString refusal = Begin(*keeping, group); !refusal.isEmpty()) return told.written({refusal, {}});
    const auto step = [this, keeping](const ScriptTab& tab, const std::function<void()>& next) {
        const QString name = FileFor(tab, keeping->addresses.size() + 1);
        const QString file = QFile::decodeName(keeping->folder.c_str()) + QLatin1Char('/') + name;
        m_reads.Keep(static_cast<std::int32_t>(tab.number), file, [keeping, tab, name, next](bool kept) {
            const Text beside = PathFromBytes(LastNameOf(keeping->folder)) + u"/" + FromQt(name);
            if (kept)
                keeping->addresses.push_back({keeping->addresses.size() + 1, beside});
            else
                keeping->left.append(AddressIn(tab));
            next();
        });
    };
    const auto write = [keeping, told](const std::vector<std::string>& left) {
        Name(keeping->left, left);
        const QString refusal = WriteGroup(*keeping);
        if (!refusal.isEmpty()) ResumeNext(RemoveTree(keeping->folder));
        told.written({refusal, keeping->left});
    };
    Go(pages, {step, write}, told);
}

} // namespace tessa::qt
