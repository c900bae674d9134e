#include "benchmarks/console_talk.h"
#include "benchmarks/measurements.h"
#include "benchmarks/stopwatch.h"
#include "benchmarks/sync_log.h"

namespace bench {
namespace {

constexpr int countedSets = 100;

/// Sets the volume to one of two values in turn, so that each set is a change.
class Toggle {
  public:
    explicit Toggle(PtySession& console) : console_(console) {}

    void operator()() {
        volume_ = volume_ == -20 ? -21 : -20;
        setVolume(console_, volume_);
    }

  private:
    PtySession& console_;
    int volume_ = 0;
};

Row compareSets(const Bench& bench, PtySession& console) {
    PtySession echo({bench.programs / "echo_console", {"echo_console", (bench.device.root() / "page").string()}, {}});
    Toggle set(console);
    return ratioRow(
        "(b) durable set, broadcast off",
        compare(
            {bench.blocks, 10}, [&] { return secondsOf(set); }, [&] { return secondsOf([&] { askEcho(echo); }); }),
        1.4);
}

Row countSyncs(const Bench& bench) {
    const SyncLog log(bench);
    PtySession console(log.watch(bench.device.console()));
    Toggle set(console);
    set();  // the first one opens what the others find open
    Samples syncs;
    for (int i = 0; i < countedSets; ++i) {
        const auto before = log.count();
        set();
        syncs.push_back(static_cast<double>(log.count() - before));
    }
    return exactRow("(b) syncs a set", syncs, 1);
}

}  // namespace

std::vector<Row> durableSet(const Bench& bench) {
    PtySession console(bench.device.console());
    setBroadcast(console, false);
    std::vector<Row> rows = {compareSets(bench, console), countSyncs(bench)};
    setBroadcast(console, true);
    return rows;
}

}  // namespace bench
