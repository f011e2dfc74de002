#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/reliability/accounts/trend.h"
#include "tests/reliability/soak/calm.h"
#include "tests/reliability/soak/soak_stage.h"
#include "tests/support/process/resources.h"

namespace reliability {

/// The table that a soak prints, and its verdict on memory and descriptors.
class SoakReport {
  public:
    static std::string header();

    /// Adds what a calm phase has found, `minutes` after the start.
    void add(double minutes, SoakStage& stage, const CalmCounts& calm);
    /// From now on it is another daemon, whose memory is not judged.
    void daemonChanged() { memoryJudged_ = false; }
    /// The table's line about the last one added.
    std::string line() const { return line_; }
    /// What has grown, over lines; empty when nothing has.
    std::string growth() const;
    /// The trends and the longest return, over lines.
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
