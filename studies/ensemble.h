// Weather ensembles: the same design run on several years of synthetic
// weather, each from its own seed, and the spread of every figure (median
// and 10th to 90th percentile).
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "results/result_charts.h"
#include "run/headless_run.h"
#include "studies/run_metrics.h"

namespace solvane {

inline constexpr int kDefaultEnsembleSize = 20;
// The seed of "Repeat previously run weather sequence".
inline constexpr double kFixedWeatherSeed = 0.83766422;

// The seeds of an ensemble of `count` runs: the first is the fixed sequence
// of "Repeat previously run weather sequence", the others follow it by the
// golden-ratio step (a low-discrepancy sequence, Weyl 1916), so the same
// count always gives the same seeds and a larger ensemble extends a smaller.
std::vector<double> EnsembleSeeds(int count);

// The p-th percentile (0..100) by linear interpolation between the order
// statistics (Hyndman and Fan 1996, definition 7). NaN for no values.
double Percentile(std::vector<double> values, double p);

struct MetricBand {
    std::string key, unit;
    bool detail = false;
    int count = 0;  // runs that gave the figure
    double p10 = 0, median = 0, p90 = 0, min = 0, max = 0;
};

// The band of every figure over the runs, in the first run's order.
std::vector<MetricBand> SummarizeRuns(const std::vector<RunMetrics>& runs);
const MetricBand* FindBand(const std::vector<MetricBand>& bands, std::string_view key);

struct EnsembleResult {
    std::vector<double> seeds;
    std::vector<RunMetrics> runs;       // the completed runs, in seed order
    std::vector<std::string> failures;  // "seed .123: why", one per failed run
    std::vector<MetricBand> bands;
    double seconds = 0;  // wall-clock time of the whole ensemble
};

// The bands the result charts draw behind their bars and points.
ChartBands ChartBandsOf(const EnsembleResult& ensemble);

// Runs the opened project once for each seed, `jobs` runs at a time, each in
// its own program folder made from the session's. `progress` is called after
// each run with the number done.
EnsembleResult RunEnsemble(const Session& opened, const RunRequest& request,
                           const std::vector<double>& seeds, int jobs,
                           const std::function<void(int done, int total)>& progress = {});

// Runs `count` tasks on `jobs` threads; the body gets the worker's number
// (0..jobs-1) and the task's.
void ParallelFor(int count, int jobs, const std::function<void(int worker, int task)>& body);

// The cores this process may use.
int AvailableCores();

}  // namespace solvane
