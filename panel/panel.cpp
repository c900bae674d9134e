#include "panel/panel.h"

#include "host/launcher/options.h"
#include "panel/assets.h"
#include "platform/event_bus.h"
#include "platform/user_config.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <string_view>
#include <utility>

namespace panel {
namespace {

using namespace std::chrono_literals;

/// What happens within that time is sent in one message, so that many changes do not make many messages.
constexpr auto sendingTime = 40ms;

/// A reset of all settings is announced before it is made, and raises no event.
constexpr char upgradeEvent[] = "UpgradeSlaveVersionQuery";
constexpr auto rereadingTime = 300ms;
constexpr int rereadingTimes = 10;

constexpr std::string_view storeEventEnding = "ConfigChanged";

enum Status { done = 204, malformed = 400, missing = 404, conflict = 409, locked = 423, failed = 500 };

bool isLocked() {
    int lock = 0;
    user_config_query_boolean(R"({"system":{"key":{"lock":false}}})", &lock);
    return lock == 1;
}

void add(json_object* message, const char* key, host::Json value) {
    if (value != nullptr) json_object_object_add(message, key, value.release());
}

/// Any bytes as the characters of those numbers.
host::Json charactersOf(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text += byte;
        } else {
            text.append({static_cast<char>(0xc0 | (code >> 6)), static_cast<char>(0x80 | (code & 0x3f))});
        }
    }
    return host::Json(json_object_new_string_len(text.data(), static_cast<int>(text.size())));
}

EventStreams::Id pageOf(const Request& request) { return host::parseNumber(request.query, 1, INT_MAX).value_or(0); }

void update(host::Store& store, const Request& request) {
    if (store.update(request.body.c_str())) return request.reply(done, "");
    request.reply(errno == EINVAL ? malformed : failed, std::string("The store refused it: ") + std::strerror(errno));
}

}  // namespace

Panel::Panel(host::EventLoop& loop, std::string consoleAddress)
    : loop_(loop),
      consoleAddress_(std::move(consoleAddress)),
      streams_(
          loop, [this](Id id) { onOpen(id); }, [this](Id id) { onClose(id); }),
      traffic_(loop, [this](const host::BusTraffic& traffic) { onTraffic(traffic); }),
      sessions_(
          loop,
          [this] {
              sessionsDiffer_ = true;
              tellSoon();
          },
          [this](const Session& session, const std::string& line) {
              strip_.add("typed", session.port + " " + session.peer, line);
          }),
      display_(loop,
               [this](const char* who, const std::string& bytes) {
                   strip_.add("display", who, bytes);
                   tellSoon();
               }),
      settings_(host::settingsStore()),
      status_(host::statusStore()),
      sending_(loop, [this] { sendChanges(); }),
      rereading_(loop, [this] { rereadForAWhile(); }) {}

void Panel::serve(const Request& request) {
    static const std::map<std::string, Action> actions = {
        {"/press", &Panel::press},        {"/settings", &Panel::changeSettings}, {"/status", &Panel::changeStatus},
        {"/publish", &Panel::publish},    {"/display", &Panel::setDisplay},      {"/console", &Panel::openConsole},
        {"/type", &Panel::typeOnConsole},
    };
    if (!request.isPost) return request.path == "/events" ? streams_.open(request) : sendAsset(request);
    const auto action = actions.find(request.path);
    if (action == actions.end()) return request.reply(missing, "There is no such action.\n");
    (this->*action->second)(request);
}

/// A key of the front panel: what it changes, unless the keys are locked.
void Panel::press(const Request& request) {
    if (isLocked()) return request.reply(locked, "The front panel is locked.");
    update(host::settingsStore(), request);
}

void Panel::changeSettings(const Request& request) { update(host::settingsStore(), request); }

void Panel::changeStatus(const Request& request) { update(host::statusStore(), request); }

void Panel::publish(const Request& request) {
    if (eventbus_publish(request.query.c_str(), request.body.c_str()) == 0) return request.reply(done, "");
    request.reply(failed, std::string("It cannot be published: ") + std::strerror(errno));
}

void Panel::setDisplay(const Request& request) {
    const bool isSet = display_.set(request.body);
    const int error = errno;
    host::Json message(json_object_new_object());
    add(message.get(), "display", host::Json(json_object_new_string(display_.state().c_str())));
    streams_.send(host::compactText(message.get()));
    if (isSet) return request.reply(done, "");
    request.reply(conflict, std::string("The display cannot be at its address: ") + std::strerror(error));
}

void Panel::openConsole(const Request& request) {
    const Id id = pageOf(request);
    if (!streams_.holds(id)) return request.reply(missing, "The page is not open.\n");
    const auto onOutput = [this, id](const std::string& bytes) {
        host::Json message(json_object_new_object());
        add(message.get(), "console", charactersOf(bytes));
        streams_.sendTo(id, host::compactText(message.get()));
    };
    consoles_.erase(id);
    consoles_.try_emplace(id, loop_, consoleAddress_, onOutput, [this, id] { endConsole(id); });
    request.reply(done, "");
}

void Panel::typeOnConsole(const Request& request) {
    const auto console = consoles_.find(pageOf(request));
    if (console == consoles_.end()) return request.reply(missing, "The page has no console.\n");
    console->second.type(request.body);
    request.reply(done, "");
}

void Panel::endConsole(Id id) {
    consoles_.erase(id);
    streams_.sendTo(id, R"({"consoleEnded":true})");
}

void Panel::onOpen(Id id) {
    traffic_.start();
    sessions_.start();
    host::Json message(json_object_new_object());
    add(message.get(), "page", host::Json(json_object_new_int(id)));
    add(message.get(), "settings", settings_.whole());
    add(message.get(), "status", status_.whole());
    add(message.get(), "sessions", sessions_.list());
    add(message.get(), "display", host::Json(json_object_new_string(display_.state().c_str())));
    streams_.sendTo(id, host::compactText(message.get()));
}

void Panel::onClose(Id id) {
    consoles_.erase(id);
    if (!streams_.isEmpty()) return;
    traffic_.stop();
    sessions_.stop();
}

void Panel::onTraffic(const host::BusTraffic& traffic) {
    const std::string name(traffic.name);
    const bool isEvent = traffic.service.empty();
    strip_.add(isEvent ? "event" : "call", isEvent ? name : std::string(traffic.service) + " " + name, traffic.text);
    if (isEvent && traffic.name.ends_with(storeEventEnding)) storesMayDiffer_ = true;
    if (isEvent && traffic.name == upgradeEvent) rereadings_ = rereadingTimes;
    if (rereadings_ > 0 && !rereading_.isRunning()) rereading_.start(rereadingTime);
    tellSoon();
}

void Panel::rereadForAWhile() {
    storesMayDiffer_ = true;
    sendChanges();
    if (--rereadings_ > 0) rereading_.start(rereadingTime);
}

void Panel::tellSoon() {
    if (!sending_.isRunning()) sending_.start(sendingTime);
}

void Panel::sendChanges() {
    if (streams_.isEmpty()) return;
    host::Json message(json_object_new_object());
    if (std::exchange(storesMayDiffer_, false)) {
        add(message.get(), "settings", settings_.news());
        add(message.get(), "status", status_.news());
    }
    if (std::exchange(sessionsDiffer_, false)) add(message.get(), "sessions", sessions_.list());
    add(message.get(), "strip", strip_.take());
    if (json_object_object_length(message.get()) > 0) streams_.send(host::compactText(message.get()));
}

}  // namespace panel
