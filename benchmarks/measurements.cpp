#include "benchmarks/measurements.h"

#include "benchmarks/announcer.h"
#include "benchmarks/consoles.h"
#include "benchmarks/limits/durable_page.h"

#include <ctime>
#include <fstream>
#include <limits>
#include <optional>
#include <thread>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

/// One sample of what `action` takes.
template <typename Action>
std::function<double()> timed(Action action) {
    return [action] { return secondsOf(action); };
}

/// The minimal console, which makes a page of `file` durable for each line, if a file is given.
host::ProgramStart echoConsole(const Bench& bench, const std::string& file = {}) {
    host::ProgramStart program{bench.programs / "echo_console", {"echo_console"}};
    if (!file.empty()) program.arguments.push_back(file);
    return program;
}

void askEcho(Talk& echo) { echo.ask(askVolumeLine, "reply\r\n"); }

/// A query line and its reply on a terminal.
std::vector<Row> measureQuery(const Bench& bench) {
    Session console(bench.console()), echo(echoConsole(bench));
    return {{"(a) query",
             compare({bench.blocks, 50}, timed([&] { askVolume(console); }), timed([&] { askEcho(echo); })), 1.35}};
}

/// A setting that is durable when its reply comes.
std::vector<Row> measureSet(const Bench& bench) {
    Session console(bench.console()), echo(echoConsole(bench, bench.root / "page"));
    setBroadcast(console, false);
    int volume = -20;
    const auto set = [&] {
        volume = -41 - volume;
        console.ask(setVolumeLine(volume), volumeReply(volume));
    };
    const Comparison sets = compare({bench.blocks, 10}, timed(set), timed([&] { askEcho(echo); }));
    setBroadcast(console, true);
    return {{"(b) durable set, broadcast off", sets, 1.20}};
}

constexpr int operatorCount = 20;
constexpr std::chrono::milliseconds interval{60};

/// The operators type in turn, each once an interval and another value than the one before them.
Samples typeInTurn(Crowd& consoles, int rounds) {
    std::vector<Samples> waits(operatorCount);
    std::vector<std::jthread> operators;
    const auto start = Clock::now();
    const auto work = [&](int number) {
        for (int round = 0; round < rounds; ++round) {
            std::this_thread::sleep_until(start + round * interval + number * interval / operatorCount);
            const int volume = -1 - (round * operatorCount + number) % 80;
            Session& console = consoles[static_cast<std::size_t>(number)];
            waits[static_cast<std::size_t>(number)].push_back(
                secondsOf([&] { console.ask(setVolumeLine(volume), volumeReply(volume)); }));
        }
    };
    for (int number = 0; number < operatorCount; ++number) operators.emplace_back(work, number);
    operators.clear();
    Samples all;
    for (const Samples& each : waits) all.insert(all.end(), each.begin(), each.end());
    return all;
}

/// Many consoles that set at the same time, on a disk that is slow to sync.
std::vector<Row> measureCrowd(const Bench& bench) {
    Session console(bench.console());
    setBroadcast(console, false);
    host::ProgramStart slow = bench.console();
    slow.environment.push_back("LD_PRELOAD=" + (bench.programs / "libslow_sync.so").string());
    Crowd consoles;
    for (int i = 0; i < operatorCount; ++i) askVolume(consoles.add(slow));
    const double longest = quantile(typeInTurn(consoles, 2 * bench.blocks), 1.0);
    setBroadcast(console, true);
    const double limit = std::chrono::duration<double>(interval).count();
    return {{"(b2) 20 consoles set in 60 ms, sync + 2 ms: worst", {{longest}, {limit}, {longest / limit}}, 1.0}};
}

/// A setting that every console shows.
std::vector<Row> measureFanOut(const Bench& bench) {
    struct Audience {
        std::size_t size;
        double repeatGoal, changeGoal;
    };
    ConsoleCrowd consoles(bench.console());
    Announcer announcer(bench.programs / "datagram_console", bench.root / "fan_out");
    DurablePage page((bench.root / "page").c_str());
    const std::string line = volumeReply(-20);
    const auto announceDurably = [&] {
        page.overwrite();
        announcer.announce(line);
    };
    const Plan plan{bench.blocks, 5};
    std::vector<Row> rows;
    for (const Audience& audience : {Audience{1, 2.7, 1.6}, {20, 2.0, 2.2}, {100, 2.0, 1.9}}) {
        consoles.growTo(audience.size);
        announcer.growTo(audience.size);
        const std::string shown = " shown by " + std::to_string(audience.size);
        rows.push_back({"(c) same value" + shown,
                        compare(plan, timed([&] { consoles.repeat(); }), timed([&] { announcer.announce(line); })),
                        audience.repeatGoal});
        rows.push_back({"(c) new value" + shown + ", limit with sync",
                        compare(plan, timed([&] { consoles.change(); }), timed(announceDurably)), audience.changeGoal});
    }
    return rows;
}

const host::ProgramStart bash = {"/bin/bash", {"bash", "--norc"}, {"PATH=/usr/bin:/bin", "TERM=dumb"}};

/// The reply does not stand in the typed line, which the shell echoes.
void askShell(Talk& session) { session.ask("echo $((6 * 7))\r", "42"); }

double startShell() {
    std::optional<Session> session;  // its end is not part of its start
    return secondsOf([&] { askShell(session.emplace(bash)); });
}

/// A new session until it has answered its first line, started here and through the launcher.
std::vector<Row> measureStart(const Bench& bench) {
    const auto start = [&] {
        std::optional<Session> session;
        return secondsOf([&] { askVolume(session.emplace(bench.console())); });
    };
    const auto connect = [&] {
        std::optional<Talk> client;
        return secondsOf([&] { client.emplace(connectTo(bench.port)).ask("VOUT sta\r\n", "VOUT -"); });
    };
    return {{"(d) start until the first reply, limit bash", compare({bench.blocks, 3}, start, startShell), 1.20},
            {"(d) connect until the first reply, limit bash", compare({bench.blocks, 3}, connect, startShell)}};
}

Comparison compareMemory(const Crowd& consoles, const Crowd& shells, const char* kind) {
    Comparison result;
    for (const auto& session : consoles) result.ours.push_back(memoryOf(session->pid(), kind));
    for (const auto& session : shells) result.limit.push_back(memoryOf(session->pid(), kind));
    for (const double ours : result.ours) result.ratios.push_back(ours / median(result.limit));
    return result;
}

/// What one more session costs in memory.
std::vector<Row> measureMemory(const Bench& bench) {
    ConsoleCrowd consoles(bench.console());
    consoles.growTo(20);
    Crowd shells;
    while (shells.size() < 20) askShell(shells.add(bash));
    return {{"(e) private dirty memory, 20 alive, limit bash", compareMemory(consoles.all(), shells, "Private_Dirty"),
             0.70, Unit::bytes},
            {"(e) proportional memory, 20 alive, limit bash", compareMemory(consoles.all(), shells, "Pss"), NAN,
             Unit::bytes}};
}

/// The processor time of all threads of all sessions so far, in seconds.
double processorTimeOf(const Crowd& crowd) {
    double sum = 0;
    for (const auto& session : crowd) {
        clockid_t clock{};
        timespec time{};
        clock_getcpuclockid(session->pid(), &clock);
        clock_gettime(clock, &time);
        sum += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }
    return sum;
}

/// What sessions cost in which nobody types.
std::vector<Row> measureIdle(const Bench& bench) {
    constexpr std::size_t count = 100;
    constexpr std::chrono::seconds window{1};  // the slowest clock of an idle console
    Crowd consoles, loops;
    while (consoles.size() < count) askVolume(consoles.add(bench.console()));
    while (loops.size() < count) askEcho(loops.add(echoConsole(bench)));
    Comparison idle;
    for (int block = 0; block < bench.blocks; ++block) {
        const double console = processorTimeOf(consoles), loop = processorTimeOf(loops);
        std::this_thread::sleep_for(window);  // both crowds idle through the same window
        idle.ours.push_back(processorTimeOf(consoles) - console);
        idle.limit.push_back(processorTimeOf(loops) - loop);
        idle.ratios.push_back(idle.ours.back() / idle.limit.back());
    }
    return {{"(f) processor time of 100 idle sessions, a second", idle, 1.2}};
}

}  // namespace

const std::vector<Measurement> measurements = {
    {"query", measureQuery}, {"set", measureSet},       {"crowd", measureCrowd}, {"fanout", measureFanOut},
    {"start", measureStart}, {"memory", measureMemory}, {"idle", measureIdle},
};

host::ProgramStart Bench::console() const {
    constexpr char name[] = "/usr/bin/*cmdd";
    return {root.string() + name,
            {name},
            {"PATH=" + (root / "sbin").string(), "DEVICE_ROOT=" + root.string(), "TELNET_CLIENT_IP=127.0.0.1",
             "MALLOC_ARENA_MAX=1"}};
}

double memoryOf(pid_t pid, const std::string& kind) {
    std::ifstream fields("/proc/" + std::to_string(pid) + "/smaps_rollup");
    for (std::string name; fields >> name;) {
        double kilobytes = 0;
        if (name == kind + ":" && fields >> kilobytes) return kilobytes * 1024;
        fields.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return 0;
}

}  // namespace bench
