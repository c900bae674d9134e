#include "benchmarks/report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace bench {
namespace {

/// One half of a block: appends its samples to `all` and returns their median.
double measureHalf(int count, const std::function<double()>& measure, Samples& all) {
    Samples samples;
    for (int i = 0; i < count; ++i) samples.push_back(measure());
    all.insert(all.end(), samples.begin(), samples.end());
    return median(samples);
}

template <typename... Values>
std::string format(const char* pattern, Values... values) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string withUnit(double value, Unit unit) {
    if (unit == Unit::bytes) return format("%.0f kB", value / 1024);
    return value < 1e-3 ? format("%.0f us", value * 1e6) : format("%.2f ms", value * 1e3);
}

struct Spread {
    explicit Spread(const Samples& samples)
        : lower(quantile(samples, 0.25)), middle(median(samples)), upper(quantile(samples, 0.75)) {}

    double lower, middle, upper;
};

/// A row is over only where most of its blocks are.
const char* verdict(const Spread& ratio, double goal) {
    if (std::isnan(goal)) return "";
    return ratio.lower > goal ? "over" : "ok";
}

}  // namespace

double quantile(Samples samples, double part) {
    const auto rank = std::ceil(part * static_cast<double>(samples.size()));
    const auto place = samples.begin() + static_cast<std::ptrdiff_t>(std::max(rank, 1.0)) - 1;
    std::nth_element(samples.begin(), place, samples.end());
    return *place;
}

Comparison compare(Plan plan, const std::function<double()>& ours, const std::function<double()>& limit) {
    Comparison result;
    for (int block = 0; block < plan.blocks; ++block) {
        const bool oursFirst = block % 2 == 0;
        double oursMedian = 0;
        if (oursFirst) oursMedian = measureHalf(plan.samples, ours, result.ours);
        const double limitMedian = measureHalf(plan.samples, limit, result.limit);
        if (!oursFirst) oursMedian = measureHalf(plan.samples, ours, result.ours);
        result.ratios.push_back(oursMedian / limitMedian);
    }
    return result;
}

void print(const std::vector<Row>& rows) {
    std::printf("%-52s %10s %10s %7s %15s %7s\n", "what", "median", "limit", "ratio", "quartiles", "goal");
    for (const Row& row : rows) {
        const Spread ratio(row.measured.ratios);
        const std::string quartiles = format("%.2f to %.2f", ratio.lower, ratio.upper);
        const std::string goal = std::isnan(row.goal) ? "" : format("%.2fx", row.goal);
        std::printf("%-52s %10s %10s %6.2fx %15s %7s  %s\n", row.what.c_str(),
                    withUnit(median(row.measured.ours), row.unit).c_str(),
                    withUnit(median(row.measured.limit), row.unit).c_str(), ratio.middle, quartiles.c_str(),
                    goal.c_str(), verdict(ratio, row.goal));
    }
}

void write(const std::filesystem::path& path, const std::vector<Row>& rows) {
    std::ofstream file(path);
    for (const Row& row : rows) {
        const Spread ratio(row.measured.ratios);
        file << row.what << '\t' << withUnit(median(row.measured.ours), row.unit) << '\t'
             << withUnit(median(row.measured.limit), row.unit) << '\t' << ratio.lower << '\t' << ratio.middle << '\t'
             << ratio.upper << '\t' << row.goal << '\n';
    }
}

}  // namespace bench
