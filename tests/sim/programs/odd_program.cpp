// A program with windows that does what its arguments say, in their order: for tests of what a
// system has to put up with.
//   class=TEXT title=TEXT    of the windows that follow
//   open, dialog             a window; one that belongs to the first
//   button=TEXT              in the last window; a click on it shuts that
//   wait=MS                  goes on with what follows after that, with events handled
//   shut                     shuts the first window that is open
//   deaf, ask                on the wish to close: does nothing; asks in a dialog that a click ends
//   grab, point              takes the keyboard, the pointer for itself
//   hang, die                never looks at its events again; ends at once
//   nopid                    its windows do not tell whose they are
//   log=FILE                 a line for each key, size and wish to close
#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

class OddProgram {
  public:
    explicit OddProgram(std::vector<std::string> words) : words_(std::move(words)) {
        if (xcb_connection_has_error(c_)) std::exit(2);
    }

    void Run() {
        for (const std::string& word : words_)
            Obey(word.substr(0, word.find('=')),
                 word.substr(std::min(word.size(), word.find('=') + 1)));
        while (!windows_.empty())
            Handle(1000);
    }

  private:
    void Obey(const std::string& word, const std::string& value) {
        if (word == "class") class_ = value;
        if (word == "title") title_ = value;
        if (word == "open") Open(false);
        if (word == "dialog") Open(true);
        if (word == "button") Button(value);
        if (word == "wait") Wait(std::atoi(value.c_str()));
        if (word == "shut") Shut(windows_.front());
        if (word == "deaf") deaf_ = true;
        if (word == "ask") ask_ = true;
        if (word == "grab") Grab();
        if (word == "point") Point();
        if (word == "hang") ::sleep(1000);
        if (word == "die") std::_Exit(3);
        if (word == "nopid") pid_ = false;
        if (word == "log") log_.open(value, std::ios::app);
    }

    xcb_atom_t Atom(const char* name) const {
        auto* reply = xcb_intern_atom_reply(
            c_, xcb_intern_atom(c_, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
            nullptr);
        const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        std::free(reply);
        return atom;
    }
    void Text(xcb_window_t window, xcb_atom_t property, const std::string& text) const {
        xcb_change_property(c_, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    }
    void Number(xcb_window_t window, const char* property, xcb_atom_t type,
                std::uint32_t number) const {
        xcb_change_property(c_, XCB_PROP_MODE_REPLACE, window, Atom(property), type, 32, 1,
                            &number);
    }
    xcb_window_t Make(xcb_window_t parent, int width, int height) const {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c_)).data;
        const xcb_window_t window = xcb_generate_id(c_);
        const std::uint32_t values[] = {screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS |
                                                                 XCB_EVENT_MASK_BUTTON_PRESS |
                                                                 XCB_EVENT_MASK_BUTTON_RELEASE |
                                                                 XCB_EVENT_MASK_STRUCTURE_NOTIFY};
        xcb_create_window(c_, XCB_COPY_FROM_PARENT, window, parent ? parent : screen->root, 20, 20,
                          static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        return window;
    }
    void Name(xcb_window_t window, const std::string& title, const std::string& name) const {
        Text(window, XCB_ATOM_WM_NAME, title);
        Text(window, XCB_ATOM_WM_CLASS, "odd" + std::string(1, '\0') + name + std::string(1, '\0'));
    }

    void Open(bool dialog) {
        const xcb_window_t window = Make(0, dialog ? 120 : 200, dialog ? 60 : 150);
        Name(window, title_, class_);
        Number(window, "WM_PROTOCOLS", XCB_ATOM_ATOM, Atom("WM_DELETE_WINDOW"));
        if (pid_)
            Number(window, "_NET_WM_PID", XCB_ATOM_CARDINAL,
                   static_cast<std::uint32_t>(::getpid()));
        if (dialog && !windows_.empty())
            Number(window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, windows_.front());
        xcb_map_window(c_, window);
        windows_.push_back(window);
        xcb_flush(c_);
    }
    void Button(const std::string& caption) {
        button_ = Make(windows_.back(), 40, 20);
        Name(button_, caption, "Button");
        xcb_map_window(c_, button_);
        xcb_flush(c_);
    }
    void Shut(xcb_window_t window) {
        xcb_destroy_window(c_, window);
        std::erase(windows_, window);
        xcb_flush(c_);
    }
    /// Until the window can be seen, and nobody else has it just then.
    template<class Taken> void Take(const char* told, Taken taken) {
        for (int i = 0; i < 100; ++i) {
            auto* reply = taken(windows_.front());
            const bool done = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
            std::free(reply);
            if (done) return Log(told);
            Wait(20);
        }
    }
    void Grab() {
        Take("grabbed", [this](xcb_window_t window) {
            const auto asked = xcb_grab_keyboard(c_, 1, window, XCB_CURRENT_TIME,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
            return xcb_grab_keyboard_reply(c_, asked, nullptr);
        });
    }
    void Point() {
        Take("pointed", [this](xcb_window_t window) {
            const auto asked = xcb_grab_pointer(c_, 0, window, XCB_EVENT_MASK_BUTTON_PRESS,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                                XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
            return xcb_grab_pointer_reply(c_, asked, nullptr);
        });
    }

    void Wait(int milliseconds) {
        const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
        while (Clock::now() < end)
            Handle(static_cast<int>(
                std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count()));
    }
    void Handle(int milliseconds) {
        pollfd display{xcb_get_file_descriptor(c_), POLLIN, 0};
        xcb_flush(c_);
        xcb_generic_event_t* event = xcb_poll_for_event(c_);
        if (!event) ::poll(&display, 1, milliseconds);
        for (; event || (event = xcb_poll_for_event(c_)); std::free(event), event = nullptr)
            See(*event);
        if (xcb_connection_has_error(c_)) std::exit(0);
    }
    void See(const xcb_generic_event_t& event) {
        switch (event.response_type & 0x7F) {
        case XCB_KEY_PRESS: {
            const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
            return Log("key " + std::to_string(key.detail) + " " + std::to_string(key.state & 4));
        }
        case XCB_BUTTON_RELEASE: {
            const auto& click = reinterpret_cast<const xcb_button_release_event_t&>(event);
            if (button_ != 0 && click.event == button_) {
                button_ = 0;
                Log("clicked");
                return Shut(windows_.back());
            }
            if (click.event == question_) windows_.clear();
            return;
        }
        case XCB_CONFIGURE_NOTIFY: {
            const auto& now = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
            return Log("size " + std::to_string(now.width) + "x" + std::to_string(now.height));
        }
        case XCB_CLIENT_MESSAGE:
            return Close(reinterpret_cast<const xcb_client_message_event_t&>(event));
        default:
            return;
        }
    }
    void Close(const xcb_client_message_event_t& wish) {
        if (wish.data.data32[0] != Atom("WM_DELETE_WINDOW")) return;
        Log("close");
        if (deaf_) return;
        if (!ask_ || wish.window == question_) return Shut(wish.window);
        if (question_ != 0) return;
        title_ = "Save?";
        Open(true);
        question_ = windows_.back();
    }
    void Log(const std::string& line) {
        if (log_.is_open()) log_ << line << std::endl;
    }

    std::vector<std::string> words_;
    xcb_connection_t* c_ = xcb_connect(nullptr, nullptr);
    std::vector<xcb_window_t> windows_;
    xcb_window_t button_ = 0, question_ = 0;
    std::string class_ = "Odd", title_ = "odd";
    bool deaf_ = false, ask_ = false, pid_ = true;
    std::ofstream log_;
};

} // namespace

int main(int argc, char** argv) {
    OddProgram(std::vector<std::string>(argv + 1, argv + argc)).Run();
    return 0;
}
