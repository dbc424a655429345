#include "visuals/scenes/aurora_scene.h"
#include "visuals/scenes/cover_scene.h"
#include "visuals/scenes/scope_scene.h"
#include "visuals/scenes/spectrum_scene.h"

namespace vk {

const std::vector<std::string_view>& SceneNames() {
    static const std::vector<std::string_view> names = {"spectrum", "scope", "cover", "aurora"};
    return names;
}

std::unique_ptr<Scene> MakeScene(std::string_view name, int width, int height) {
    width = std::max(width, LeastCanvas);
    height = std::max(height, LeastCanvas);
    if (name == "scope") return std::make_unique<ScopeScene>(width, height);
    if (name == "cover") return std::make_unique<CoverScene>(width, height);
    if (name == "aurora") return std::make_unique<AuroraScene>(width, height);
    return std::make_unique<SpectrumScene>(width, height);
}

} // namespace vk
