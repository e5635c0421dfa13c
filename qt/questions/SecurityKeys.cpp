#include "qt/questions/SecurityKeys.h"

#include "qt/questions/Covers.h"
#include "qt/questions/SecurityKeyDialog.h"

#include <utility>

namespace tessa::qt {

using EngineVersions::KeyStep;

void SecurityKeys::FollowPage(QWebEnginePage& page) {
    EngineVersions::FollowSecurityKeys(
        page, *this, [this](const auto& request) { Begin(request); }, [this] { Update(); });
}

void SecurityKeys::Begin(const EngineVersions::SecurityKeyRequest& request) {
    if (const auto before = std::exchange(m_request, request)) before->Cancel();
    Update();
}

void SecurityKeys::Update() {
    TakeOff();
    if (!m_request) return;
    if (const auto state = m_request->State(); state.Step != KeyStep::None) Show(state);
}

void SecurityKeys::Show(const EngineVersions::SecurityKeyState& state) {
    m_shown = new SecurityKeyDialog(state);
    m_shown->Accepted.ConnectForLife([this, step = state.Step] { Answer(step, m_shown->Entered()); });
    m_shown->Cancelled.ConnectForLife([this] { Answer(KeyStep::Failed, {}); });
    m_covers.Add(m_shown);
}

// The answer may change the state at once, and with it the dialog.
void SecurityKeys::Answer(KeyStep step, const QString& entered) {
    TakeOff();
    const auto request = *m_request;
    if (step == KeyStep::ChooseAccount) return request.Choose(entered);
    if (step == KeyStep::EnterPin || step == KeyStep::SetPin) return request.EnterPin(entered);
    request.Cancel();
}

void SecurityKeys::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
