#include "studies/ensemble.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>

#include "core/numeric_helpers.h"
#include "projectfile/file_dialogs.h"
#include "run/run_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane {

std::vector<double> EnsembleSeeds(int count) {
    constexpr double kGoldenStep = 0.6180339887498949;
    std::vector<double> seeds;
    for (int i = 0; i < count; ++i) {
        const double s = std::fmod(kFixedWeatherSeed + i * kGoldenStep, 1.0);
        // As the seed is written for the engine: seven figures.
        seeds.push_back(i == 0 ? kFixedWeatherSeed : NumVal(WeatherSeedText(s)));
    }
    return seeds;
}

double Percentile(std::vector<double> values, double p) {
    if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
    std::sort(values.begin(), values.end());
    const double h = (static_cast<double>(values.size()) - 1) * std::clamp(p, 0.0, 100.0) / 100;
    const auto lo = static_cast<std::size_t>(std::floor(h));
    const std::size_t hi = std::min(lo + 1, values.size() - 1);
    return values[lo] + (h - static_cast<double>(lo)) * (values[hi] - values[lo]);
}

std::vector<MetricBand> SummarizeRuns(const std::vector<RunMetrics>& runs) {
    std::vector<MetricBand> bands;
    if (runs.empty()) return bands;
    for (const Metric& first : runs.front().metrics) {
        std::vector<double> values;
        for (const RunMetrics& r : runs)
            if (const Metric* m = r.Find(first.key); m && m->value) values.push_back(*m->value);
        MetricBand b{first.key, first.unit, first.detail, static_cast<int>(values.size())};
        if (!values.empty()) {
            b.p10 = Percentile(values, 10);
            b.median = Percentile(values, 50);
            b.p90 = Percentile(values, 90);
            b.min = *std::min_element(values.begin(), values.end());
            b.max = *std::max_element(values.begin(), values.end());
        }
        bands.push_back(std::move(b));
    }
    return bands;
}

const MetricBand* FindBand(const std::vector<MetricBand>& bands, std::string_view key) {
    for (const MetricBand& b : bands)
        if (b.key == key) return &b;
    return nullptr;
}

ChartBands ChartBandsOf(const EnsembleResult& e) {
    ChartBands out;
    out.runs = static_cast<int>(e.runs.size());
    auto band = [&](const std::string& key) -> ChartBand {
        const MetricBand* b = FindBand(e.bands, key);
        if (!b || b->count == 0) return std::nullopt;
        return std::pair{b->p10, b->p90};
    };
    if (!e.runs.empty()) {
        // The categories in the order the report heads them.
        int i = 0;
        for (const Metric& m : e.runs.front().metrics)
            if (m.key.rfind("endUse.", 0) == 0 && ++i <= 6)
                out.source[static_cast<std::size_t>(i)] = band(m.key);
    }
    for (std::size_t m = 0; m < 12; ++m) {
        out.heating[m] = band("monthly.heating." + std::to_string(m + 1));
        out.cooling[m] = band("monthly.cooling." + std::to_string(m + 1));
    }
    for (std::size_t c = 0; c < 9; ++c) {
        out.peakHeating[c] = band("peakHeating." + std::to_string(c + 1));
        out.peakCooling[c] = band("peakCooling." + std::to_string(c + 1));
    }
    return out;
}

int AvailableCores() {
    return std::max(1u, std::thread::hardware_concurrency());
}

void ParallelFor(int count, int jobs, const std::function<void(int worker, int task)>& body) {
    jobs = std::clamp(jobs, 1, std::max(1, count));
    std::atomic<int> next{0};
    auto work = [&](int worker) {
        for (int task; (task = next.fetch_add(1)) < count;) body(worker, task);
    };
    std::vector<std::thread> threads;
    for (int w = 1; w < jobs; ++w) threads.emplace_back(work, w);
    work(0);
    for (std::thread& t : threads) t.join();
}

EnsembleResult RunEnsemble(const Session& opened, const RunRequest& request,
                           const std::vector<double>& seeds, int jobs,
                           const std::function<void(int done, int total)>& progress) {
    const auto started = std::chrono::steady_clock::now();
    const int count = static_cast<int>(seeds.size());
    jobs = std::clamp(jobs, 1, std::max(1, count));
    std::vector<std::optional<RunMetrics>> results(seeds.size());
    std::vector<std::string> errors(seeds.size());
    // One program folder and one session per worker, made on its first task.
    std::vector<std::unique_ptr<RunFolder>> folders(static_cast<std::size_t>(jobs));
    std::mutex progressLock;
    int done = 0;
    ParallelFor(count, jobs, [&](int worker, int task) {
        const auto i = static_cast<std::size_t>(task);
        try {
            auto& folder = folders[static_cast<std::size_t>(worker)];
            if (!folder) folder = std::make_unique<RunFolder>(opened.paths);
            Session session = opened;
            session.paths = folder->Paths();
            ScriptedPrompt prompt;
            RunRequest r = request;
            r.seed = seeds[i];
            r.repeatWeather = seeds[i] == kFixedWeatherSeed;
            const RunOutcome outcome = RunHeadless(session, prompt, r);
            if (outcome.status != 0) {
                errors[i] = outcome.error;
            } else if (auto metrics = ReadRunMetrics(outcome.report)) {
                results[i] = std::move(*metrics.table);
            } else {
                errors[i] = metrics.error;
            }
        } catch (const std::exception& e) {
            errors[i] = e.what();
        }
        if (progress) {
            std::lock_guard lock(progressLock);
            progress(++done, count);
        }
    });
    EnsembleResult result;
    result.seeds = seeds;
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        if (results[i])
            result.runs.push_back(std::move(*results[i]));
        else
            result.failures.push_back("seed " + NumText(seeds[i]) + ": " + errors[i]);
    }
    result.bands = SummarizeRuns(result.runs);
    result.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    return result;
}

}  // namespace solvane
