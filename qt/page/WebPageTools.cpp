#include "qt/page/WebPageTools.h"

#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <QTimer>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace tessa::qt {

namespace {

using Request = QWebEngineContextMenuRequest;

constexpr qsizetype kLongestSelection = 2000;
constexpr qsizetype kMostSuggestions = 5;
constexpr std::chrono::milliseconds kMenuPatience{250};

// Runs in a world of its own, which the page cannot change.
constexpr auto kSelectedLinks = R"js((function () {
    var selection = window.getSelection(), found = [];
    if (!selection || selection.isCollapsed) return found;
    for (var i = 0; i < document.links.length && found.length < 500; ++i) {
        var link = document.links[i];
        if (typeof link.href === 'string' && selection.containsNode(link, true) && found.indexOf(link.href) < 0)
            found.push(link.href);
    }
    return found;
})())js";

Text Address(const QUrl& url) { return FromQt(url.toString(QUrl::FullyEncoded)); }

PageContext::Kind KindOf(Request::MediaType type) {
    switch (type) {
    case Request::MediaTypeImage:
        return PageContext::Kind::Image;
    case Request::MediaTypeAudio:
        return PageContext::Kind::Audio;
    case Request::MediaTypeVideo:
        return PageContext::Kind::Video;
    default:
        return PageContext::Kind::None;
    }
}

void AddFlags(PageContext& context, const Request& request) {
    const auto edit = request.editFlags();
    context.CanUndo = edit.testFlag(Request::CanUndo);
    context.CanRedo = edit.testFlag(Request::CanRedo);
    context.CanCut = edit.testFlag(Request::CanCut);
    context.CanCopy = edit.testFlag(Request::CanCopy);
    context.CanPaste = edit.testFlag(Request::CanPaste);
    const auto media = request.mediaFlags();
    context.MediaPaused = media.testFlag(Request::MediaPaused);
    context.MediaMuted = media.testFlag(Request::MediaMuted);
    context.MediaLoops = media.testFlag(Request::MediaLoop);
    context.MediaHasControls = media.testFlag(Request::MediaControls);
}

QWebEnginePage::WebAction ActionOf(PageAction action) {
    switch (action) {
    case PageAction::Undo:
        return QWebEnginePage::Undo;
    case PageAction::Redo:
        return QWebEnginePage::Redo;
    case PageAction::PasteAsText:
        return QWebEnginePage::PasteAndMatchStyle;
    case PageAction::CopyImage:
        return QWebEnginePage::CopyImageToClipboard;
    case PageAction::PlayOrPause:
        return QWebEnginePage::ToggleMediaPlayPause;
    case PageAction::MuteOrNot:
        return QWebEnginePage::ToggleMediaMute;
    case PageAction::LoopOrNot:
        return QWebEnginePage::ToggleMediaLoop;
    case PageAction::ShowControlsOrNot:
        return QWebEnginePage::ToggleMediaControls;
    case PageAction::Inspect:
        return QWebEnginePage::InspectElement;
    }
    return QWebEnginePage::NoWebAction;
}

} // namespace

PageContext WebPageTools::ContextOf(const QWebEngineView& view) {
    PageContext context;
    const Request* request = view.lastContextMenuRequest();
    if (!request) return context;
    context.LinkURL = Address(request->linkUrl());
    context.MediaURL = Address(request->mediaUrl());
    context.Media = KindOf(request->mediaType());
    context.SelectedText = FromQt(request->selectedText().left(kLongestSelection));
    context.MisspelledWord = FromQt(request->misspelledWord());
    for (const QString& each : request->spellCheckerSuggestions().mid(0, kMostSuggestions))
        context.Suggestions.push_back(FromQt(each));
    context.Editable = request->isContentEditable();
    AddFlags(context, *request);
    return context;
}

void WebPageTools::AskForMenu(const QWebEngineView& view, const std::function<void(const PageContext&)>& show) {
    const PageContext context = ContextOf(view);
    if (context.SelectedText.empty() || context.Editable) return show(context);
    const auto waiting = std::make_shared<std::optional<PageContext>>(context);
    const auto tell = [waiting, show](bool links) {
        auto told = std::exchange(*waiting, std::nullopt);
        if (!told) return;
        told->SelectsLinks = links;
        show(*told);
    };
    QTimer::singleShot(kMenuPatience, &m_page, [tell] { tell(true); });
    FindSelectedLinks([tell](const std::vector<Text>& links) { tell(!links.empty()); });
}

Outcome WebPageTools::Run(PageAction action) {
    if (action == PageAction::Inspect) ShowInspector(m_page);
    m_page.triggerAction(ActionOf(action));
    return Outcome::Done;
}

Outcome WebPageTools::ReplaceWord(TextView word) {
    m_page.replaceMisspelledWord(ToQt(word));
    return Outcome::Done;
}

Outcome WebPageTools::Save(TextView address, TextView path) {
    const QUrl url(ToQt(address));
    if (!url.isValid() || !SaveAddress.HasListeners()) return Outcome::Failed;
    SaveAddress(m_page, url, Text(path));
    return Outcome::Done;
}

void WebPageTools::FindSelectedLinks(std::function<void(std::vector<Text>)> answer) {
    m_page.runJavaScript(QString::fromLatin1(kSelectedLinks), QWebEngineScript::ApplicationWorld,
                         [answer = std::move(answer)](const QVariant& links) {
                             std::vector<Text> all;
                             for (const QVariant& each : links.toList()) all.push_back(FromQt(each.toString()));
                             answer(std::move(all));
                         });
}

} // namespace tessa::qt
