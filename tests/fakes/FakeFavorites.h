#pragma once
#include "commands/FavoriteActions.h"

#include <string>

/// Favorites that write down what is wanted of them.
class FakeFavorites final : public FavoriteActions {
public:
    bool AddFavorite(TextView address, TextView title) override {
        done += "add " + ToUtf8(address) + " " + ToUtf8(title) + ";";
        return works;
    }
    void OrganizeFavorites() override { done += "organize;"; }
    void RepairFavorites() override { done += "repair;"; }
    void OpenAll(TextView folder) override { done += "open " + ToUtf8(folder) + ";"; }
    Text SaveAsGroup(TextView folder) override {
        done += "save " + ToUtf8(folder) + ";";
        return {};
    }
    bool MayOpenLink(TextView address) override { return address != refused; }

    std::string done;
    bool works = true; ///< whether any can be added
    Text refused{};    ///< an address that may not be opened
};
