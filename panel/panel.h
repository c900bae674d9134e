/// The front panel: what is sent to its pages, and what their requests do.
///
/// It uses what any program of the device can use: the stores, the bus, and the list of sessions. While no page is open
/// it uses none of them.
#pragma once

#include "host/loop/event_loop.h"
#include "panel/bridge.h"
#include "panel/display.h"
#include "panel/event_streams.h"
#include "panel/http_server.h"
#include "panel/session_list.h"
#include "panel/store_view.h"
#include "panel/strip.h"
#include "panel/traffic.h"

#include <map>
#include <string>

namespace panel {

class Panel {
  public:
    /// `consoleAddress` is where the launcher listens.
    Panel(host::EventLoop& loop, std::string consoleAddress);

    void serve(const Request& request);

  private:
    using Id = EventStreams::Id;
    using Action = void (Panel::*)(const Request&);

    void press(const Request& request);
    void changeSettings(const Request& request);
    void changeStatus(const Request& request);
    void publish(const Request& request);
    void setDisplay(const Request& request);
    void openConsole(const Request& request);
    void typeOnConsole(const Request& request);

    void onOpen(Id id);
    void onClose(Id id);
    void onTraffic(const host::BusTraffic& traffic);
    void endConsole(Id id);
    void tellSoon();
    void sendChanges();
    void rereadForAWhile();

    host::EventLoop& loop_;
    const std::string consoleAddress_;
    EventStreams streams_;
    Traffic traffic_;
    SessionList sessions_;
    Display display_;
    std::map<Id, Bridge> consoles_;
    StoreView settings_;
    StoreView status_;
    Strip strip_;
    bool storesMayDiffer_ = false;
    bool sessionsDiffer_ = false;
    int rereadings_ = 0;
    host::Timer sending_;
    host::Timer rereading_;
};

}  // namespace panel
