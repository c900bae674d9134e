#include "benchmarks/consoles.h"
#include "benchmarks/measurements.h"

#include <cstdio>
#include <fstream>

namespace bench {
namespace {

/// Medians measured with this many sessions.
struct Size {
    std::size_t sessions;
    double change;  ///< seconds until the last one shows a new value
    double set;     ///< seconds until one that sets with broadcast off is answered, while the others are idle
    double start;   ///< seconds until the first reply of one session more
    double memory;  ///< private dirty bytes of a session
};

double medianOf(int count, const std::function<void()>& action) {
    Samples samples;
    for (int i = 0; i < count; ++i) samples.push_back(secondsOf(action));
    return median(samples);
}

Size measureSize(ConsoleCrowd& consoles, const host::ProgramStart& program, int count) {
    Size size{consoles.all().size(), 0, 0, 0, 0};
    size.change = medianOf(count, [&] { consoles.change(); });
    Samples memory;
    for (const auto& session : consoles.all()) memory.push_back(memoryOf(session->pid(), "Private_Dirty"));
    size.memory = median(memory);
    size.start = medianOf(count, [&] {
        Session session(program);
        askVolume(session);
    });
    Session& setter = consoles.all()[0];
    setBroadcast(setter, false);
    int volume = -30;
    size.set = medianOf(count, [&] {
        --volume;
        setter.ask(setVolumeLine(volume), volumeReply(volume));
    });
    setBroadcast(setter, true);
    return size;
}

/// What one session of those between two sizes has added.
double added(const Size& before, const Size& now, double Size::*what) {
    return (now.*what - before.*what) / static_cast<double>(now.sessions - before.sessions);
}

void printSize(const Size& now) {
    std::printf("%8zu %10.2f ms %10.2f ms %10.2f ms %10.0f kB", now.sessions, now.change * 1e3, now.set * 1e3,
                now.start * 1e3, now.memory / 1024);
}

}  // namespace

void measureGrowth(const Bench& bench, const std::filesystem::path& path) {
    const host::ProgramStart program = bench.console();
    ConsoleCrowd consoles(program);
    std::ofstream file(path);
    std::printf("%8s %13s %13s %13s %13s   one session more adds to the three times\n", "sessions", "change", "set",
                "start", "memory");
    Size last{};
    for (const std::size_t sessions : {1U, 16U, 64U, 256U}) {
        consoles.growTo(sessions);
        const Size now = measureSize(consoles, program, std::min(bench.blocks, 40));
        file << now.sessions << '\t' << now.change << '\t' << now.set << '\t' << now.start << '\t' << now.memory
             << '\n';
        printSize(now);
        if (sessions > 1) {
            std::printf("   %6.1f us %6.1f us %6.1f us", added(last, now, &Size::change) * 1e6,
                        added(last, now, &Size::set) * 1e6, added(last, now, &Size::start) * 1e6);
        }
        std::printf("\n");
        last = now;
    }
}

}  // namespace bench
