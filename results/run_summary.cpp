#include "results/run_summary.h"

#include "core/numeric_helpers.h"

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

ReportRead<LifeCycleTotal> ReadLifeCycleTotal(std::string_view report) {
    ReportRead<LifeCycleTotal> r;
    const std::size_t section = report.find("\r\nVII.");
    if (section == std::string_view::npos) {
        r.error = "The results file has no cost analysis (section VII.).";
        return r;
    }
    auto lineAfter = [&](std::string_view head) -> std::string_view {
        const std::size_t at = report.find(head, section);
        if (at == std::string_view::npos) return {};
        const std::size_t end = report.find("\r\n", at + 2);
        return report.substr(at, end == std::string_view::npos ? report.size() - at : end - at);
    };
    constexpr std::string_view kHead = "\r\n    LIFE-CYCLE COST: PRESENT WORTH OVER ";
    const std::string_view head = lineAfter(kHead);
    const std::string_view total = lineAfter("\r\n    TOTAL LIFE-CYCLE COST");
    if (head.empty() || total.size() < 2 + 59 + 14) {
        r.error = "The results file holds no life-cycle cost: it needs a whole-year run.";
        return r;
    }
    LifeCycleTotal t;
    const std::string h(head.substr(kHead.size()));
    t.years = static_cast<int>(NumVal(h));
    const auto rate = h.find("RATE OF ");
    if (rate != std::string::npos) t.discountRate = NumVal(h.substr(rate + 8));
    t.presentWorth = NumVal(std::string(total.substr(2 + 59, 14)));
    r.table = t;
    return r;
}

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
    Take(ReadLifeCycleTotal(report), s.lifeCycle, s.notAvailable);
    r.table = std::move(s);
    return r;
}

}  // namespace solvane
