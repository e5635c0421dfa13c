#pragma once
#include "base/Signal.h"
#include "forms/StatusBar.h"

#include <QStatusBar>
#include <QStringList>
#include <QTimer>
#include <chrono>

class QLabel;
class QPushButton;

namespace tessa::qt {

/// Shows a `StatusBar`, which outlives it. Texts are gathered for a tenth of a second. Any repaint composes the whole
/// window again with the page's picture. Its owner gives it its place.
class StatusBarView final : public QStatusBar {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds kNoticeTime{15};

    explicit StatusBarView(StatusBar& bar, QWidget* parent = nullptr);

    /// Shows what the program itself has to say. No text of a page replaces it until somebody can have read it.
    void Notice(const QString& text, std::chrono::milliseconds time = kNoticeTime);
    /// How long what can be taken back offers that.
    static constexpr std::chrono::seconds kOfferTime{30};
    /// The same for something that went wrong: nothing replaces it in that time. Several stand beside each other.
    void Complain(const QString& text);

    /// The sign that tells what was blocked.
    [[nodiscard]] QWidget& BlockedSign();
    [[nodiscard]] Pixels Height() const { return m_bar.Height; }
    /// The bar has been shown or hidden, or the font has made it higher or lower.
    Signal<void()> HeightChanged;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* MakeLabel(const QString& name);
    void FollowVisible();
    void LayParts();
    void FollowLabels();
    void BindButtons();
    void BindSaving();
    void ShowSaid(const Text& said);
    void ShowSaving();
    void ShowText();
    void ShowNotices();
    void Measure();

    StatusBar& m_bar;
    QPushButton *m_stopAll, *m_undo, *m_saving, *m_blocked;
    QLabel *m_zoom, *m_profile;
    QString m_notice;
    QStringList m_complaints;
    QTimer m_textTimer, m_noticeTimer, m_savingTimer;
    Connections m_connections;
};

} // namespace tessa::qt
