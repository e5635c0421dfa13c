#pragma once
#include "qt/script/GroupChecks.h"
#include "qt/script/GroupOutput.h"
#include "qt/script/PageReads.h"
#include "qt/script/ScriptCall.h"
#include "qt/script/TabWalk.h"

#include <functional>
#include <optional>
#include <vector>

namespace tessa::qt {

/// What a script reads of pages, makes of them and asks of servers.
class PageMethods {
public:
    struct Parts {
        ScriptedWindow& window;
        PageReads& reads;
        LoadWaits& waits;
        GroupOutput& output;
        GroupChecks& checks;
    };
    /// All outlive it.
    explicit PageMethods(const Parts& parts) : m_parts(parts) {}

    [[nodiscard]] std::vector<ScriptMethod> All();

private:
    /// Calls `ready` once the tab's page may be read and has loaded.
    void WhenReadable(const ScriptCall& call, const std::function<void(std::int32_t index)>& ready);
    void ReadText(const ScriptCall& call);
    void ReadHtml(const ScriptCall& call);
    void WritePdf(const ScriptCall& call);
    void WriteScreenshot(const ScriptCall& call);
    void WritePdfOfAll(const ScriptCall& call);
    /// The pages of the group that the call names; refuses it where there is none.
    [[nodiscard]] std::optional<GroupOutput::Pages> PagesOfGroup(const ScriptCall& call) const;
    void WritePdfOfGroup(const ScriptCall& call);
    void KeepGroup(const ScriptCall& call);
    void CheckGroup(const ScriptCall& call);

    Parts m_parts;
};

} // namespace tessa::qt
