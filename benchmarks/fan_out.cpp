#include "benchmarks/announcer.h"
#include "benchmarks/console_talk.h"
#include "benchmarks/durable_page.h"
#include "benchmarks/measurements.h"
#include "benchmarks/stopwatch.h"

namespace bench {
namespace {

struct Audience {
    std::size_t size;
    double goal;
};

constexpr Audience audiences[] = {{1, 4.0}, {20, 2.0}, {100, 2.0}};

/// Consoles of the device, of which the first one sets.
class ConsoleCrowd {
  public:
    explicit ConsoleCrowd(const Program& program) : program_(program) {}

    void growTo(std::size_t count) {
        while (crowd_.size() < count) awaitHearing(crowd_.add(program_));
        change();  // what was shown before it is another volume
    }

    /// A change, which is stored and announced.
    void change() { set(volume_ == -20 ? -21 : -20); }

    /// What is stored already is announced all the same.
    void repeat() { set(volume_); }

  private:
    /// A console that has just started does not listen yet.
    void awaitHearing(PtySession& console) {
        constexpr std::chrono::milliseconds patience{20};
        do {
            crowd_[0].type(setVolumeLine(volume_));
        } while (!console.awaitFor(patience, volumeReply(volume_)));
    }

    void set(int volume) {
        volume_ = volume;
        crowd_[0].type(setVolumeLine(volume));
        crowd_.await(volumeReply(volume));
    }

    Program program_;
    Crowd crowd_;
    int volume_ = -20;
};

}  // namespace

std::vector<Row> fanOut(const Bench& bench) {
    ConsoleCrowd consoles(bench.device.console());
    Announcer announcer(bench.programs / "datagram_console", bench.device.root() / "fan_out");
    DurablePage page((bench.device.root() / "page").c_str());
    const std::string line = volumeReply(-20);
    std::vector<Row> rows;
    for (const Audience& audience : audiences) {
        consoles.growTo(audience.size);
        announcer.growTo(audience.size);
        const std::string on = "shown by " + std::to_string(audience.size);
        const Comparison repeats = compare(
            {bench.blocks, 5}, [&] { return secondsOf([&] { consoles.repeat(); }); },
            [&] { return secondsOf([&] { announcer.announce(line); }); });
        rows.push_back(ratioRow("(c) set to the same value, " + on, repeats, audience.goal));
        const auto announceDurably = [&] {
            page.overwrite();
            announcer.announce(line);
        };
        const Comparison changes = compare(
            {bench.blocks, 5}, [&] { return secondsOf([&] { consoles.change(); }); },
            [&] { return secondsOf(announceDurably); });
        rows.push_back(ratioRow("(c) set to another value, " + on + ", limit with sync", changes, audience.goal));
    }
    return rows;
}

}  // namespace bench
