#include "pages/PageCaptures.h"

namespace tessa {

void PageCaptures::Allow(SitePermission permission) {
    const auto isAnyOf = [permission](auto... each) { return ((permission == each) || ...); };
    using enum SitePermission;
    if (isAnyOf(Camera, CameraAndMicrophone)) m_since.camera = true;
    if (isAnyOf(Microphone, CameraAndMicrophone)) m_since.microphone = true;
    if (isAnyOf(Screen, ScreenAndSound)) m_since.screen = true;
}

void PageCaptures::BeginNavigation() {
    m_before.camera |= m_since.camera;
    m_before.microphone |= m_since.microphone;
    m_before.screen |= m_since.screen;
    m_since = {};
}

Text PageCaptures::Words() const {
    std::vector<Text> words;
    if (m_before.camera || m_since.camera) words.emplace_back(u"camera");
    if (m_before.microphone || m_since.microphone) words.emplace_back(u"microphone");
    if (m_before.screen || m_since.screen) words.emplace_back(u"screen");
    Text all;
    for (std::size_t i = 0; i < words.size(); ++i)
        all += (i == 0 ? Text() : Text(i + 1 == words.size() ? u" and " : u", ")) + words[i];
    return all;
}

Text PageCaptures::Sentence(TextView host) const {
    const Text words = Words();
    return words.empty() ? Text() : Text(host.empty() ? u"A page" : host) + u" may use your " + words + u".";
}

} // namespace tessa
