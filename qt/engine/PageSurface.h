#pragma once
#include "qt/engine/Schedule.h"
#include "qt/engine/ViewContext.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWebEngineView>

class QPoint;
class QWebEngineFullScreenRequest;

namespace tessa {
struct PageContext;
} // namespace tessa

namespace tessa::qt {

class ViewPage;

/// What a view shows in the page area: the page's widget, and the bars and covers that lie over it. A page that is not
/// shown stays hidden from the engine and goes on running.
class PageSurface final : public QObject {
public:
    explicit PageSurface(const ViewContext& view) : m_view(view) {}

    /// Shows that page from now on, which has its questions by now.
    void SetPage(ViewPage& page);
    /// The page goes, and all that shows it.
    void End();
    /// Nothing while there is no page.
    [[nodiscard]] QWebEngineView* Widget() const { return m_widget; }
    /// Whether somebody may see the page.
    [[nodiscard]] bool Visible() const;
    [[nodiscard]] bool FillsScreen() const;

    void Show(ShownAs place);
    void Hide();
    void Move(const QRect& place);
    /// Lays everything out, because bars beside the page or over it came or went.
    void Lay();
    /// A bar above the page that is shown with it; nothing for none. `Lay` gives it its place.
    void SetBar(QWidget* bar) { m_bar = bar; }
    void SetTabStop(bool tabStop);
    /// Gives the page the keyboard, now or when it is shown.
    void SetFocus();
    void ForgetFocus() { m_wantsFocus = false; }
    void OnFullScreen(QWebEngineFullScreenRequest request);
    void LeaveFullScreen();

private:
    void MakeWidget();
    void FollowQuestions();
    void ShowQuestion();
    void RaiseBars();
    void AskForMenu(QPoint at);
    void ShowMenu(const PageContext& context, QPoint at) const;

    const ViewContext m_view;
    ViewPage* m_page = nullptr; ///< as long as there is a widget
    QPointer<QWebEngineView> m_widget;
    QPointer<QWidget> m_bar;
    QRect m_place;
    bool m_tabStop = false;
    bool m_wantsFocus = false;
};

} // namespace tessa::qt
