#include "qt/page/DocumentKind.h"

#include "downloads/FileNames.h"
#include "qt/base/Strings.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QUrl>
#include <array>

namespace tessa::qt {

namespace {

struct KindWords {
    const char* start; ///< of the type's name
    const char* words;
};

constexpr std::array kKindWords{
    KindWords{"application/pdf", "PDF document"},
    KindWords{"image/", "Picture"},
    KindWords{"video/", "Video"},
    KindWords{"audio/", "Sound"},
    KindWords{"text/", "Text"},
    KindWords{"application/json", "Text"},
    KindWords{"application/xml", "Text"},
};

QString WordsOf(const QString& type) {
    for (const KindWords& each : kKindWords) {
        if (type.startsWith(QLatin1String(each.start))) return QLatin1String(each.words);
    }
    return QStringLiteral("Document");
}

// Of an address that holds the document itself, or stands for something in memory, nothing is a name.
QString NameIn(const QUrl& address) {
    const bool nameless = address.scheme() == u"data" || address.scheme() == u"blob";
    return nameless ? QString() : ToQt(FileNameOfAddress(FromQt(address.toString(QUrl::FullyEncoded))));
}

QMimeType TypeOfName(const QString& name) {
    return QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension);
}

// Servers call nearly anything a text. Its name may say more, unless that would make a page of it when it is opened.
bool SaysMore(const QMimeType& byName, const QMimeType& type) {
    const bool page =
        byName.inherits(QStringLiteral("text/html")) || byName.inherits(QStringLiteral("application/xml"));
    return byName.inherits(type.name()) && !page;
}

QString SuffixFor(const QMimeType& type, const QString& name) {
    const QString given = QFileInfo(name).suffix().toLower();
    const bool fits = type.suffixes().contains(given) || SaysMore(TypeOfName(name), type);
    return !given.isEmpty() && fits ? given : type.preferredSuffix();
}

// The number at the end of a version is an ending of some manuals, too.
QString WithoutEnding(const QString& name) {
    const QString given = QFileInfo(name).suffix();
    const bool ending = !given.isEmpty() && given.front().isLetter() && !TypeOfName(name).isDefault();
    return ending ? QFileInfo(name).completeBaseName() : name;
}

} // namespace

QString DocumentKind::Filter() const {
    return QStringLiteral("%1 (%2)").arg(Words, Suffix.isEmpty() ? QStringLiteral("*") : QStringLiteral("*.") + Suffix);
}

DocumentKind DocumentKind::Of(const QString& type, const QUrl& address) {
    const QString name = NameIn(address);
    const QString known = type.isEmpty() ? TypeOfName(name).name() : type;
    DocumentKind kind;
    const bool nothing = type.isEmpty() && TypeOfName(name).isDefault();
    kind.IsWebPage = nothing || known == u"text/html" || known == u"application/xhtml+xml" ||
                     (type.isEmpty() && WordsOf(known) == u"Document");
    if (kind.IsWebPage) return kind;
    const QMimeType mime = QMimeDatabase().mimeTypeForName(known);
    kind.IsPdf = known == u"application/pdf";
    kind.Words = WordsOf(known);
    kind.Suffix = mime.isValid() ? SuffixFor(mime, name) : QString();
    const QString base = name.isEmpty() ? QStringLiteral("document") : WithoutEnding(name);
    const QString whole = kind.Suffix.isEmpty() ? base : base + u'.' + kind.Suffix;
    kind.Name = ToQt(CleanFileName(FromQt(whole)));
    return kind;
}

} // namespace tessa::qt
