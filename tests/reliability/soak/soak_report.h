#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/reliability/accounts/trend.h"
#include "tests/reliability/soak/calm.h"
#include "tests/reliability/soak/soak_stage.h"
#include "tests/support/process/resources.h"

namespace reliability {

/// The table that a soak prints, and its judgement of memory and descriptors.
class SoakReport {
  public:
    static std::string header();

    /// Adds the results of a calm phase that ended `minutes` after the start.
    void add(double minutes, SoakStage& stage, const CalmCounts& calm);
    /// Reports that another daemon runs from now on; its memory is not judged.
    void daemonChanged() { memoryJudged_ = false; }
    /// The line of the table about the last phase that was added.
    std::string line() const { return line_; }
    /// What has grown, in whole lines; empty if nothing has.
    std::string growth() const;
    /// The trends and the longest return of the adapter, in whole lines.
    std::string summary() const;

  private:
    std::vector<TrendPoint> memory_;
    bool memoryJudged_ = true;
    support::Resources first_;
    support::Resources last_;
    BusWatch::Counts bus_;
    CalmCounts calm_;
    std::string line_;
};

}  // namespace reliability
