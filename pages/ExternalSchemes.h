#pragma once
#include "base/Text.h"

#include <map>
#include <utility>
#include <vector>

namespace tessa {

/// What is to become of an address that no page can show.
enum class ExternalRule { Ask, Open, Refuse };

/// Which addresses belong to other programs of the desktop, and which answers about them hold for the run.
class ExternalSchemes {
public:
    /// Whether addresses of that scheme, in lower case, are for other programs.
    [[nodiscard]] static bool IsExternal(TextView scheme);

    /// `site` is the origin that wants it opened, as in "https://a.example"; empty for the user.
    [[nodiscard]] ExternalRule RuleFor(TextView scheme, TextView site) const;
    void Remember(TextView scheme, TextView site, bool open);

    struct Decision {
        Text Scheme, Site;
        bool Opens = false;
    };
    [[nodiscard]] std::vector<Decision> All() const;
    void Forget(TextView scheme, TextView site);
    void ForgetAll() { m_answers.clear(); }

private:
    std::map<std::pair<Text, Text>, bool> m_answers;
};

} // namespace tessa
