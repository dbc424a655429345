#include "platform/linux/sound/alsa_quiet.h"

#include <cstdarg>

// ALSA's header leaves its last declaration outside its own extern "C".
extern "C" {
#include <alsa/error.h>
}

namespace vk {

void KeepAlsaQuiet() {
    snd_lib_error_set_local([](const char*, int, const char*, int, const char*, std::va_list) {});
}

} // namespace vk
