#include "commands/Dispatcher.h"

#include "address/Endpoints.h"
#include "bar/ToolName.h"
#include "commands/CommandTable.h"

#include <algorithm>

namespace tessa {

namespace {

template<typename... Each>
struct Overloaded : Each... {
    using Each::operator()...;
};
// Not every compiler finds this by itself.
template<typename... Each>
Overloaded(Each...) -> Overloaded<Each...>;

} // namespace

void Dispatcher::actBar_Click(const Tool& tool) {
    // What a click is about is decided when it comes. The command may select another tab or ask the user, and a later
    // start may do so behind that question.
    const std::int32_t view = m_context.tabs.CurrentIndex();
    if (RunLink(tool)) return;
    // A command may rebuild the menu that the tool stands in, and the tool with it.
    const ToolSource source = tool.Source();
    RunNamed(tool);
    Open(source, view);
}

bool Dispatcher::RunLink(const Tool& tool) {
    const TextView name = tool.Name();
    if (name.starts_with(DesignedNames::kShopLinks)) {
        Navigate(m_context.tabs.CurrentIndex(), Text(Endpoints::kShop) + tool.Description);
    } else if (name.starts_with(DesignedNames::kFindLinks)) {
        Navigate(m_context.tabs.CurrentIndex(), Text(Endpoints::kFind) + tool.Description);
    } else if (name.starts_with(DesignedNames::kResizeCommands)) {
        name == u"mnuResizeAddress"_tool ? m_context.window->ResizeAddress() : m_context.window->ResizeSearch();
    } else {
        return false;
    }
    return true;
}

void Dispatcher::RunNamed(const Tool& tool) {
    // The name of a Favorite is its address, which whoever wrote it has chosen.
    const bool ofAFile = tool.IsRunTime() && !tool.From<MadeFrom::Page>();
    if (ofAFile && tool.Name().starts_with(DesignedNames::kOwnCommands)) return;
    const auto table = CommandTable();
    const auto command = std::ranges::find_if(
        table, [&](const Command& row) { return row.Runs() && row.tool == TextView(tool.Name()); });
    if (command == table.end()) return;
    std::visit(Overloaded{[](std::monostate) {}, [](CommandTraits::ByFamily) {},
                          [&](WindowEffect effect) { effect(m_context); },
                          [&](ToolEffect effect) { effect(m_context, tool); },
                          [&](ViewEffect effect) {
                              if (auto* view = m_context.tabs.CurrentView()) effect(m_context, *view->Control);
                          }},
               command->effect);
}

void Dispatcher::Open(const ToolSource& source, std::int32_t view) {
    if (const auto* link = std::get_if<MadeFrom::FavoriteLink>(&source)) OpenFavorite(link->address, view);
    if (const auto* group = std::get_if<MadeFrom::Group>(&source)) m_context.groups.OpenTessaGroup(group->path);
}

void Dispatcher::OpenFavorite(TextView address, std::int32_t view) {
    const bool newTab = m_context.input.ShiftHeld();
    if (!m_context.favorites->MayOpenLink(address)) return;
    if (!newTab) return Navigate(view, address);
    if (auto* made = m_context.tabs.GetNewBrowser(InFront::Yes)) ResumeNext(made->Navigate(address));
}

void Dispatcher::Navigate(std::int32_t view, TextView address) {
    if (auto* open = m_context.tabs.OpenView(view)) ResumeNext(open->Control->Navigate(address));
}

} // namespace tessa
