// An ALSA control device whose controls are numbers in a file, so that a test sees and changes them
// from outside. Its configuration:
//   elements [ "Master Playback" … ]  each is a volume and a switch of that name
//   state FILE        32-bit numbers, volume and switch of each element in turn; no file: no card
//   minimum, maximum  of the volumes
// Controls that the file is too short for are gone. While FILE.hang exists, a write does not
// return; while FILE.refuse exists, the first control takes none.
#include <alsa/asoundlib.h>
#include <alsa/control_external.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int HangStepUs = 1000;

struct FakeCard {
    std::string state;
    std::vector<std::string> elements;
    long minimum = 0, maximum = 100;
    int watch = -1;       ///< of the file's folder
    unsigned changed = 0; ///< controls that are still to be told of, from the last on
    unsigned told = 0;    ///< controls that the user of the card knows of

    bool Has(const char* file) const { return access((state + file).c_str(), F_OK) == 0; }
    unsigned Controls() const {
        struct stat info {};
        stat(state.c_str(), &info);
        return std::min(static_cast<unsigned>(elements.size()) * 2,
                        static_cast<unsigned>(info.st_size / 4));
    }
    std::string Name(unsigned control) const {
        return elements[control / 2] + (control % 2 == 0 ? " Volume" : " Switch");
    }
};

FakeCard& Card(snd_ctl_ext_t* ext) {
    return *static_cast<FakeCard*>(ext->private_data);
}

void Close(snd_ctl_ext_t* ext) {
    close(Card(ext).watch);
    delete &Card(ext);
    delete ext;
}

int List(snd_ctl_ext_t* ext, unsigned offset, snd_ctl_elem_id_t* id) {
    snd_ctl_elem_id_set_interface(id, SND_CTL_ELEM_IFACE_MIXER);
    snd_ctl_elem_id_set_name(id, Card(ext).Name(offset).c_str());
    return 0;
}

snd_ctl_ext_key_t Find(snd_ctl_ext_t* ext, const snd_ctl_elem_id_t* id) {
    for (unsigned control = 0; control < Card(ext).Controls(); ++control)
        if (Card(ext).Name(control) == snd_ctl_elem_id_get_name(id)) return control;
    return SND_CTL_EXT_KEY_NOT_FOUND;
}

int Attribute(snd_ctl_ext_t*, snd_ctl_ext_key_t key, int* type, unsigned* access, unsigned* count) {
    *type = key % 2 == 0 ? SND_CTL_ELEM_TYPE_INTEGER : SND_CTL_ELEM_TYPE_BOOLEAN;
    *access = SND_CTL_EXT_ACCESS_READWRITE;
    *count = 1;
    return 0;
}

int Range(snd_ctl_ext_t* ext, snd_ctl_ext_key_t, long* minimum, long* maximum, long* step) {
    *minimum = Card(ext).minimum;
    *maximum = Card(ext).maximum;
    *step = 1;
    return 0;
}

// One number of the state; the file is opened each time, so that one that is moved away is gone.
template<class Access> int WithState(snd_ctl_ext_t* ext, snd_ctl_ext_key_t key, Access access) {
    const int file = open(Card(ext).state.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0) return -ENODEV;
    access(file, static_cast<off_t>(key * 4));
    close(file);
    return 0;
}

int Read(snd_ctl_ext_t* ext, snd_ctl_ext_key_t key, long* value) {
    return WithState(ext, key, [&](int file, off_t at) {
        std::int32_t number = 0;
        if (pread(file, &number, 4, at) == 4) *value = number;
    });
}

int Write(snd_ctl_ext_t* ext, snd_ctl_ext_key_t key, long* value) {
    while (Card(ext).Has(".hang"))
        usleep(HangStepUs);
    if (key == 0 && Card(ext).Has(".refuse")) return -EPERM;
    const int result = WithState(ext, key, [&](int file, off_t at) {
        const auto number = static_cast<std::int32_t>(*value);
        if (pwrite(file, &number, 4, at) != 4) *value = 0;
    });
    return result < 0 ? result : 1;
}

// Whatever happens in the folder may be a new number or the end of the card.
int ReadEvent(snd_ctl_ext_t* ext, snd_ctl_elem_id_t* id, unsigned* mask) {
    FakeCard& card = Card(ext);
    char events[4096];
    while (read(card.watch, events, sizeof events) > 0)
        card.changed = card.Controls();
    if (card.changed == 0 && card.told == card.Controls()) return -EAGAIN;
    if (!card.Has("")) return -ENODEV;
    if (card.told > card.Controls()) {
        List(ext, --card.told, id);
        *mask = SND_CTL_EVENT_MASK_REMOVE;
        return 1;
    }
    card.told = card.Controls();
    if (card.changed == 0) return -EAGAIN;
    List(ext, --card.changed, id);
    *mask = SND_CTL_EVENT_MASK_VALUE;
    return 1;
}

snd_ctl_ext_callback_t Callbacks() {
    snd_ctl_ext_callback_t calls{};
    calls.close = Close;
    calls.elem_count = [](snd_ctl_ext_t* ext) { return static_cast<int>(Card(ext).Controls()); };
    calls.elem_list = List;
    calls.find_elem = Find;
    calls.get_attribute = Attribute;
    calls.get_integer_info = Range;
    calls.read_integer = Read;
    calls.write_integer = Write;
    calls.subscribe_events = [](snd_ctl_ext_t*, int) {};
    calls.read_event = ReadEvent;
    return calls;
}

void ReadConfiguration(snd_config_t* conf, FakeCard& card) {
    const auto with = [conf](const char* key, auto take) {
        snd_config_t* entry = nullptr;
        if (snd_config_search(conf, key, &entry) >= 0) take(entry);
    };
    const auto text = [](snd_config_t* entry) {
        const char* value = "";
        snd_config_get_string(entry, &value);
        return std::string(value);
    };
    with("state", [&](snd_config_t* entry) { card.state = text(entry); });
    with("minimum", [&](snd_config_t* entry) { snd_config_get_integer(entry, &card.minimum); });
    with("maximum", [&](snd_config_t* entry) { snd_config_get_integer(entry, &card.maximum); });
    with("elements", [&](snd_config_t* list) {
        snd_config_iterator_t at = nullptr, next = nullptr;
        snd_config_for_each(at, next, list)
            card.elements.push_back(text(snd_config_iterator_entry(at)));
    });
}

} // namespace

extern "C" {

SND_CTL_PLUGIN_DEFINE_FUNC(fake) {
    (void)root;
    static const snd_ctl_ext_callback_t calls = Callbacks();
    auto* card = new FakeCard;
    ReadConfiguration(conf, *card);
    if (!card->Has("")) {
        delete card;
        return -ENODEV;
    }
    card->told = card->Controls();
    card->watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    const std::string folder = card->state.substr(0, card->state.rfind('/'));
    inotify_add_watch(card->watch, folder.c_str(), IN_MODIFY | IN_MOVE | IN_DELETE);
    auto* ext = new snd_ctl_ext_t{};
    ext->version = SND_CTL_EXT_VERSION;
    std::strcpy(ext->name, "Fake");
    ext->poll_fd = card->watch;
    ext->callback = &calls;
    ext->private_data = card;
    const int result = snd_ctl_ext_create(ext, name, mode);
    if (result < 0)
        Close(ext);
    else
        *handlep = ext->handle;
    return result;
}

SND_CTL_PLUGIN_SYMBOL(fake)
}
