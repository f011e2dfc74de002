#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bus/serial_interface.h"
#include "tests/support/doubles/long_rests.h"
#include "tests/support/doubles/recorded_pauses.h"
#include "tests/support/temporary_log.h"
#include "tests/support/text/bytes.h"
#include "tests/unit/bus/scripted_line.h"

/// A serial link on a scripted line. Its worker is ended right after the
/// construction and the test runs the cycles itself, one by one.
class LinkFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr const char* kHardwareAnswer = "05 06 31 2E 30 34";
    static constexpr const char* kHardwareRequest = "03 40 6F 9A";
    /// An answer without a meaning of its own, which only avoids the time-out.
    static constexpr const char* kAcknowledgement = "01 06";

    /// Builds a link to `device` and runs its first cycle.
    void build(const std::string& device, bool polling = false, bool autoDiscover = false) {
        LOGGER logger;
        logger.fileName = log_.path();
        link_ = std::make_unique<SERIAL_INTERFACE>(portPath_, logger, cards_, &reports_, polling,
                                                   autoDiscover);
        link_->Stop();
        // The port exists from here on; the worker's own cycles before this have found none.
        std::filesystem::create_symlink(device, portPath_);
        logStart_ = log_.lines().size();
        pauses_.take();
        link_->OnTask();
    }

    /// A link that has found its controller, with an empty log from there on.
    void connect(bool polling = false) {
        line_.answer(kHardwareAnswer);
        build(line_.path(), polling);
        ASSERT_EQ(link_->linkState(), SERIAL_INTERFACE::LinkState::kReady);
        line_.takeWrites();
        logStart_ = log_.lines().size();
    }

    /// From the next cycle on, the link rests when it has nothing to do.
    void goFullSpeed() {
        link_->threadDelay = 1;
        // The change of the speed itself keeps the link from resting once.
        link_->OnTask();
    }

    /// Whether `wakeUp` ends the rest of the link's next cycle.
    bool restEndsWith(const std::function<void()>& wakeUp) {
        return support::LongRests().endsWith([this] { link_->OnTask(); }, wakeUp);
    }

    void queue(std::size_t index, const std::string& frame) {
        link_->commandQueue(index).ToQueue(byteList(frame));
    }

    /// One request to the controller and its answer.
    void exchange(const std::string& answerFrame) {
        queue(wire::kSystemQueue, "50 03 01");
        line_.answer(answerFrame);
        link_->OnTask();
    }

    Texts logged() const {
        const Texts lines = log_.lines();
        return {lines.begin() + static_cast<std::ptrdiff_t>(logStart_), lines.end()};
    }

    Texts reported() { return takeTexts(reports_); }

    bool linkReady() const { return link_->linkState() == SERIAL_INTERFACE::LinkState::kReady; }

    std::string pioAnswer(std::size_t address) const {
        std::string text;
        for (std::size_t i = 0; i < wire::kPioBytes; ++i) {
            text.push_back(cards_[address].pioAnswer(i));
        }
        return hexText(text);
    }

    std::string timeoutLine() const { return "[INF] comm timeout " + portPath_; }

    support::RecordedPauses pauses_;
    ScriptedLine line_;
    support::TemporaryLog log_;
    const std::string portPath_ = log_.path() + ".port";
    CardTable cards_;
    ZLQUEUE reports_;
    std::unique_ptr<SERIAL_INTERFACE> link_;

  private:
    std::size_t logStart_ = 0;
};
