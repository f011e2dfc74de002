#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "bus/card_kinds.h"
#include "bus/polling.h"
#include "bus/serial_interface.h"
#include "common/answer_class.h"
#include "common/pauses.h"
#include "common/text.h"
#include "core/speed.h"

SERIAL_INTERFACE::SERIAL_INTERFACE(std::string devicePath, LOGGER logger, CardTable& cards,
                                   ZLQUEUE* reports, bool polling, bool autoDiscover)
    : globalPolling(polling),
      threadDelay(kDefaultThreadDelay),
      logger_(logger),
      search_(devicePath.empty()),
      autoDiscover_(autoDiscover),
      cards_(cards),
      reports_(reports),
      devicePath_(std::move(devicePath)) {
    for (ZLQUEUE& queue : commandQueues_) {
        queue.readBy(pause_);
    }
    globalPolling.readBy(pause_);
    threadDelay.readBy(pause_);
    for (std::size_t address = 0; address < wire::kAddresses; ++address) {
        cards_[address].pollingOn.readBy(pause_);
    }
    SetThreadType(kIntervalDriven, 1);
}

SERIAL_INTERFACE::~SERIAL_INTERFACE() {
    Stop();
}

bool SERIAL_INTERFACE::OnTask() {
    if (linkState_ == LinkState::kReady) {
        pause_.pause(threadDelay);
    } else {
        pause_.pauseWithoutWork(threadDelay);
    }
    if (linkState_ == LinkState::kClosed) {
        openLink();
    }
    if (linkState_ == LinkState::kReady) {
        serveQueues();
        // Polls are queued even if a time-out has just closed the port; they then wait for
        // the link to come back.
        queuePolls();
    }
    return true;
}

void SERIAL_INTERFACE::openLink() {
    if (!Init()) {
        sleepsec(2);
    } else if (autoDiscover_) {
        commandQueues_[wire::kSystemQueue].ToQueue({wire::kDiscovery});
        sleepsec(1);
    }
}

void SERIAL_INTERFACE::serveQueues() {
    for (ZLQUEUE& queue : commandQueues_) {
        // One frame per queue and cycle, so a busy card cannot starve the others.
        std::optional<ByteList> frame = queue.takeNext();
        if (!frame) {
            continue;
        }
        const ByteList answer = Comm2HW(std::move(*frame));
        const AnswerClass answerClass = GetQListError(answer);
        if (answerClass == AnswerClass::kTimeout) {
            loseLink();
            return;
        }
        if (answerClass == AnswerClass::kUsable) {
            actOn(answer);
        }
    }
}

void SERIAL_INTERFACE::loseLink() {
    logger_.info("comm timeout ", devicePath_);
    port_.close();
    linkState_ = LinkState::kClosed;
}

void SERIAL_INTERFACE::queuePolls() {
    if (!globalPolling) {
        return;
    }
    for (std::size_t address = 0; address < wire::kAddresses; ++address) {
        PERIFCARD& card = cards_[address];
        if (card.cardClass == CardClass::kInput && card.pollingOn) {
            commandQueues_[address].ToQueue(card.pollFrame());
        }
    }
}

void SERIAL_INTERFACE::actOn(const ByteList& list) {
    struct Row {
        char firstByte;
        void (SERIAL_INTERFACE::*action)(const Answer& answer);
    };
    static constexpr std::array kActions{
        Row{wire::kDiscoveryAnswer, &SERIAL_INTERFACE::takeDiscovery},
        Row{wire::kPioAnswer, &SERIAL_INTERFACE::takePioAnswer},
        Row{wire::kPollAnswer, &SERIAL_INTERFACE::takePollAnswer},
    };
    Answer answer{};
    Convert_QList2BinBuff(list, answer.data());
    // Answers are not matched to requests: each is acted on for what it is.
    for (const Row& row : kActions) {
        if (answer[0] == row.firstByte) {
            (this->*row.action)(answer);
        }
    }
}

void SERIAL_INTERFACE::takeDiscovery(const Answer& answer) {
    for (std::size_t address = 0; address < wire::kAddresses; ++address) {
        setUpCard(cards_[address], static_cast<std::uint8_t>(address),
                  answer[wire::kAnswerKinds + address]);
    }
}

void SERIAL_INTERFACE::takePioAnswer(const Answer& answer) {
    const auto address = static_cast<std::uint8_t>(answer[wire::kAnswerAddress]);
    if (address >= wire::kAddresses) {
        return;
    }
    std::array<char, wire::kPioBytes> kept{};
    std::copy_n(answer.begin(), kept.size(), kept.begin());
    cards_[address].storePioAnswer(kept);
    WriteToQueue(answer.data());
}

void SERIAL_INTERFACE::takePollAnswer(const Answer& answer) {
    const auto address = static_cast<std::uint8_t>(answer[wire::kAnswerAddress]);
    if (address >= wire::kAddresses) {
        return;
    }
    std::array<std::uint8_t, PERIFCARD::kAnalogueChannels> data{};
    std::copy_n(answer.begin() + wire::kPollData, data.size(), data.begin());
    if (takePollData(cards_[address], data)) {
        reportChanges(address);
    }
}

void SERIAL_INTERFACE::WriteToQueue(const char* answer) {
    reportChanges(static_cast<std::uint8_t>(answer[wire::kAnswerAddress]));
}

void SERIAL_INTERFACE::reportChanges(std::uint8_t address) {
    for (const std::string& report : changeReports(cards_[address], address)) {
        reports_->ToQueue(Convert_CharBuff2QList(report.c_str()));
    }
}

void SERIAL_INTERFACE::mf_SIGhandler(int signal) {
    logger_.info("signal ", ITOA(signal), " on serial interface");
    port_.close();
}
