#include "qt/questions/QtSecurityKeys.h"

#include "qt/questions/QtCovers.h"
#include "qt/questions/QtSecurityKeyDialog.h"

#include <utility>

namespace tessa::qt {

using QtEngineVersions::KeyStep;

void QtSecurityKeys::FollowPage(QWebEnginePage& page) {
    QtEngineVersions::FollowSecurityKeys(
        page, *this, [this](const auto& request) { Begin(request); }, [this] { Update(); });
}

void QtSecurityKeys::Begin(const QtEngineVersions::SecurityKeyRequest& request) {
    if (const auto before = std::exchange(m_request, request)) before->Cancel();
    Update();
}

void QtSecurityKeys::Update() {
    TakeOff();
    if (!m_request) return;
    if (const auto state = m_request->State(); state.Step != KeyStep::None) Show(state);
}

void QtSecurityKeys::Show(const QtEngineVersions::SecurityKeyState& state) {
    m_shown = new QtSecurityKeyDialog(state);
    m_shown->Accepted.ConnectForLife([this, step = state.Step] { Answer(step, m_shown->Entered()); });
    m_shown->Cancelled.ConnectForLife([this] { Answer(KeyStep::Failed, {}); });
    m_covers.Add(m_shown);
}

// The answer may change the state at once, and with it the dialog.
void QtSecurityKeys::Answer(KeyStep step, const QString& entered) {
    TakeOff();
    const auto request = *m_request;
    if (step == KeyStep::ChooseAccount) return request.Choose(entered);
    if (step == KeyStep::EnterPin || step == KeyStep::SetPin) return request.EnterPin(entered);
    request.Cancel();
}

void QtSecurityKeys::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
