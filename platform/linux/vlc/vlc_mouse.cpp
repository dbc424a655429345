#include "platform/linux/vlc/vlc_mouse.h"

#include <dlfcn.h>

#include <cmath>
#include <cstdint>
#include <string_view>

namespace vk {

namespace {

// As vlc_common.h and vlc_variables.h of the third version have them, whose layout is fixed.
struct Object {
    const char* type;
};
union Value {
    void* object;
    struct {
        std::int32_t x, y;
    } at;
};
struct List {
    int type, count;
    Value* values;
};
constexpr int Coordinates = 0xA0;

/// What of the core is called; it is in the process wherever libVLC is.
struct Core {
    List* (*children)(Object*) = nullptr;
    void (*release)(List*) = nullptr;
    int (*set)(Object*, const char* name, int type, Value) = nullptr;

    Core() {
        if (!std::string_view(libvlc_get_version()).starts_with("3.")) return;
        void* const library = ::dlopen("libvlccore.so.9", RTLD_LAZY | RTLD_NOLOAD);
        if (!library) return;
        Load(library, "vlc_list_children", children);
        Load(library, "vlc_list_release", release);
        Load(library, "var_SetChecked", set);
    }
    bool Whole() const { return children && release && set; }

  private:
    template<class Call> static void Load(void* library, const char* name, Call& call) {
        call = reinterpret_cast<Call>(::dlsym(library, name));
    }
};

void Click(const Core& core, Object* parent, const Value& where) {
    List* const children = core.children(parent);
    if (!children) return;
    for (int i = 0; i < children->count; ++i) {
        auto* child = static_cast<Object*>(children->values[i].object);
        if (child->type && std::string_view(child->type) == "video output")
            for (const char* name : {"mouse-moved", "mouse-clicked"})
                core.set(child, name, Coordinates, where);
        Click(core, child, where);
    }
    core.release(children);
}

} // namespace

void ClickPicture(libvlc_media_player_t* player, double x, double y) {
    static const Core core;
    unsigned width = 0, height = 0;
    if (!core.Whole() || libvlc_video_get_size(player, 0, &width, &height) != 0) return;
    Value where{};
    where.at = {static_cast<std::int32_t>(std::lround(x * width)),
                static_cast<std::int32_t>(std::lround(y * height))};
    Click(core, reinterpret_cast<Object*>(player), where);
}

} // namespace vk
