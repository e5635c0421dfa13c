#pragma once
#include "base/Signal.h"
#include "platform/PageTools.h"

#include <QPointer>
#include <QUrl>
#include <functional>

class QWebEngineView;

namespace tessa::qt {

class WebPage;

/// What the menu of one page can do inside it.
class WebPageTools final : public PageTools {
public:
    /// The page outlives this object.
    explicit WebPageTools(WebPage& page) : m_page(page) {}

    /// What lies where the menu was asked for last.
    [[nodiscard]] static PageContext ContextOf(const QWebEngineView& view);

    /// Tells what lies where the menu was asked for last, once it is known whether links are selected there. A page
    /// that does not say is not waited for long.
    void AskForMenu(const QWebEngineView& view, const std::function<void(const PageContext&)>& show);

    Outcome Run(PageAction action) override;
    Outcome ReplaceWord(TextView word) override;
    Outcome Save(TextView address, TextView path) override;
    void FindSelectedLinks(std::function<void(std::vector<Text>)> answer) override;

    /// An address is to be saved with the page's rights.
    Signal<void(WebPage&, const QUrl&, const Text& path)> SaveAddress;
    /// The developer tools of the page are to come up.
    Signal<void(WebPage&)> ShowInspector;

private:
    WebPage& m_page;
};

} // namespace tessa::qt
