#pragma once
#include "pages/ExternalSchemes.h"
#include "qt/QtDialogCover.h"

#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QUrl>

class QtCovers;
class QtPage;

/// Hands addresses that no page can show to the desktop's program for them, after the user was asked in a dialog of
/// the tab. One question at a time: a page that wants many opened gets one answer. An answer is for once, unless the
/// user wants it remembered; a page that was refused is not asked about again.
class QtExternalLinks final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object.
    QtExternalLinks(QtPage& page, QtCovers& covers, ExternalSchemes& answers);

    /// `site` is the host that wants it opened; empty for the user.
    void Open(const QUrl& url, const QString& site);

private:
    void Ask(const QUrl& url, const QString& site);
    void Show(QtDialogCover* dialog);
    void TakeOff();

    QtPage& m_page;
    QtCovers& m_covers;
    ExternalSchemes& m_answers;
    QSet<QPair<QString, QString>> m_refused; ///< schemes and sites, until a person goes to another page
    QPointer<QtDialogCover> m_shown;
};
