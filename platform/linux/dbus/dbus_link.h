// A D-Bus, without ever waiting for it.
#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include <systemd/sd-bus.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One connection, and one service that is spoken to. A bus that is missing, hangs at the greeting
/// or dies is tried again with growing pauses. On the user-interface thread; what it tells comes
/// from the event loop.
class DBusLink {
  public:
    /// A reply, or the words of an error; a null reply when there is none.
    using Reply = std::function<void(sd_bus_message* reply, const std::string& error)>;

    static constexpr int GreetingMs = 5000;
    static constexpr const char* Logind = "org.freedesktop.login1";

    /// `address` empty: that of the system. `greetingMs`: how long it may take to answer at all.
    explicit DBusLink(std::string address = {}, int greetingMs = GreetingMs,
                      std::string service = Logind);
    ~DBusLink();
    DBusLink(const DBusLink&) = delete;
    DBusLink& operator=(const DBusLink&) = delete;

    /// Begins, and tells of each connection. Calls made before are answered with an error.
    void Connect();
    /// The greeting is over: calls and signals go through.
    bool Ready() const { return ready_; }
    /// A call of a method, with the arguments as `sd_bus_message_append` takes them. Answered once,
    /// after some seconds at most.
    template<class... Arguments>
    void Call(const char* object, const char* interface, const char* method, Reply reply,
              const char* types, Arguments... arguments) {
        sd_bus_message* message = NewCall(object, interface, method);
        if (message && *types) sd_bus_message_append(message, types, arguments...);
        Send(message, std::move(reply));
    }
    /// Signals of the service, or of the bus itself, for each connection.
    void Hear(const char* object, const char* interface, const char* member,
              std::function<void(sd_bus_message*)> heard);

    std::function<void()> onReady;
    std::function<void(const std::string& why)>
        onLost; ///< the first time, and after each `onReady`

  private:
    struct Hearer {
        std::string object, interface, member;
        std::function<void(sd_bus_message*)> heard;
    };
    struct Pending {
        DBusLink* bus;
        Reply reply;
    };
    sd_bus_message* NewCall(const char* object, const char* interface, const char* method);
    void Send(sd_bus_message* message, Reply reply);
    void Try();
    bool Open();
    void AddHearer(Hearer& hearer);
    void Watch();
    void Process();
    void Greeted();
    void Lost(const std::string& why);
    void Close();

    const std::string address_;
    const int greetingMs_;
    const std::string service_;
    sd_bus* bus_ = nullptr;
    bool ready_ = false, told_ = false;
    int pauseMs_ = 0;
    std::vector<std::unique_ptr<Hearer>> hearers_;
    std::vector<std::unique_ptr<Pending>> pending_;
    std::unique_ptr<QSocketNotifier> reading_, writing_;
    QTimer timer_, retry_, greeting_;
};

} // namespace vk
