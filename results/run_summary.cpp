#include "results/run_summary.h"

namespace solvane {

namespace {

template <typename T>
void Take(ReportRead<T>&& read, std::optional<T>& into, std::vector<std::string>& notes) {
    if (read)
        into = std::move(*read.table);
    else
        notes.push_back(read.error);
}

}  // namespace

ReportRead<RunSummary> ReadRunSummary(std::string_view report) {
    ReportRead<RunSummary> r;
    auto energy = ReadEnergySummary(report);
    if (!energy) {
        r.error = energy.error;
        return r;
    }
    RunSummary s;
    s.energy = std::move(*energy.table);
    Take(ReadComponentLoads(report, LoadView::AnnualHeating), s.annualHeating, s.notAvailable);
    Take(ReadComponentLoads(report, LoadView::AnnualCooling), s.annualCooling, s.notAvailable);
    Take(ReadComponentLoads(report, LoadView::PeakHeating), s.peakHeating, s.notAvailable);
    Take(ReadComponentLoads(report, LoadView::PeakCooling), s.peakCooling, s.notAvailable);
    Take(ReadMonthlyCosts(report), s.costs, s.notAvailable);
    r.table = std::move(s);
    return r;
}

}  // namespace solvane
