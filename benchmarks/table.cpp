#include "benchmarks/table.h"

#include <cstdio>

namespace bench {
namespace {

template <typename... Values>
std::string format(const char* pattern, Values... values) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string withUnit(double value, Unit unit) {
    if (unit == Unit::count) return format("%.0f", value);
    if (unit == Unit::bytes) return format("%.0f kB", value / 1024);
    return value < 1e-3 ? format("%.0f us", value * 1e6) : format("%.2f ms", value * 1e3);
}

const char* verdict(const Row& row) {
    if (!row.reached) return "";
    return *row.reached ? "ok" : "over";
}

void printLine(const char* what, const char* median, const char* p99, const char* limit, const char* ratio,
               const char* goal, const char* verdict) {
    std::printf("%-58s %10s %10s %10s %8s %9s  %s\n", what, median, p99, limit, ratio, goal, verdict);
}

}  // namespace

Row ratioRow(std::string what, const Comparison& comparison, std::optional<double> goal, Unit unit) {
    const double ratio = median(comparison.ratios);
    Row row;
    row.what = std::move(what);
    row.median = withUnit(median(comparison.ours), unit);
    row.p99 = withUnit(p99(comparison.ours), unit);
    row.limit = withUnit(median(comparison.limit), unit);
    row.ratio = format("%.2fx", ratio);
    if (goal) {
        row.goal = format("<= %.2fx", *goal);
        row.reached = ratio <= *goal;
    }
    return row;
}

Row worstRow(std::string what, const Samples& samples, double goal, Unit unit) {
    Row row;
    row.what = std::move(what) + ", worst " + withUnit(worst(samples), unit);
    row.median = withUnit(median(samples), unit);
    row.p99 = withUnit(p99(samples), unit);
    row.goal = "<= " + withUnit(goal, unit);
    row.reached = worst(samples) <= goal;
    return row;
}

Row exactRow(std::string what, const Samples& samples, double goal, Unit unit) {
    Row row;
    row.what = std::move(what);
    row.median = withUnit(median(samples), unit);
    row.p99 = withUnit(p99(samples), unit);
    row.goal = "= " + withUnit(goal, unit);
    row.reached = median(samples) == goal;
    return row;
}

void print(const std::vector<Row>& rows) {
    printLine("what", "median", "p99", "limit", "ratio", "goal", "");
    for (const Row& row : rows) {
        printLine(row.what.c_str(), row.median.c_str(), row.p99.c_str(), row.limit.c_str(), row.ratio.c_str(),
                  row.goal.c_str(), verdict(row));
    }
}

}  // namespace bench
