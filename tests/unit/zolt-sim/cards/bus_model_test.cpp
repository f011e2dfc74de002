#include "apps/zolt-sim/cards/bus_model.h"

#include <gtest/gtest.h>

#include <string>

#include "lib/text/hexadecimal.h"
#include "tests/unit/zolt-sim/complaint_of.h"

namespace zolt_sim {
namespace {

BusModel model(const std::string& text) {
    return BusModel(parseBusText(text, "x.bus"));
}

const char* const kAllKinds =
    "0 servo\n3 digital-input\n5 digital-output\n8 keymatrix\n9 ir\nA motor\nE lcd\n"
    "F analogue-input\n1 code 2A\n2 silent\n";

TEST(BusModel, AnswersTheHardwareCheck) {
    BusModel bus = model("");
    EXPECT_EQ(bus.answer({0x40, 0x6F, 0x9A}).answer, (Bytes{0x06, '1', '.', '0', '4'}));
    EXPECT_EQ(bus.answer({0x40, 0x6F, 0x9B}).answer, (Bytes{0x4E, 0x6F}));
    EXPECT_EQ(bus.answer({0x40}).answer, (Bytes{0x4E, 0x00}));
}

TEST(BusModel, AnswersDiscoveryWithAllCodes) {
    BusModel bus = model(kAllKinds);
    EXPECT_EQ(bus.answer({0x30}).answer,
              (Bytes{0x31, 5, 0x2A, 0, 4, 0, 3, 0, 0, 8, 10, 6, 0, 0, 0, 9, 7}));
    EXPECT_EQ(bus.answer({0x30, 0x01}).answer, (Bytes{0x4E, 0x01}));
}

TEST(BusModel, AnswersPollsWithTheInputs) {
    BusModel bus = model(kAllKinds);
    bus.press(3, 6, true);
    bus.key(8, 0x5A);
    bus.turn(15, 3, 0xFF);
    EXPECT_EQ(bus.answer({0x20, 3, 2}).answer, (Bytes{0x21, 3, 0x40, 0x00}));
    EXPECT_EQ(bus.answer({0x20, 8, 1}).answer, (Bytes{0x21, 8, 0x5A}));
    EXPECT_EQ(bus.answer({0x20, 15, 6}).answer, (Bytes{0x21, 15, 0, 0, 0, 0xFF, 0, 0}));
}

TEST(BusModel, GivesAsManyBytesAsAPollAsksFor) {
    BusModel bus = model("3 digital-input\n");
    bus.setInput(3, 1, 0x77);
    EXPECT_EQ(bus.answer({0x20, 3, 0}).answer, (Bytes{0x21, 3}));
    EXPECT_EQ(bus.answer({0x20, 3, 1}).answer, (Bytes{0x21, 3, 0}));
    EXPECT_EQ(bus.answer({0x20, 3, 4}).answer, (Bytes{0x21, 3, 0, 0x77, 0, 0}));
    EXPECT_EQ(bus.answer({0x20, 3, 255}).answer->size(), 255U);
}

TEST(BusModel, AnswersSeveralPollsInOneRequestOnceByTheFirst) {
    BusModel bus = model("3 digital-input\n4 digital-input\n");
    bus.setInput(3, 0, 0x11);
    EXPECT_EQ(bus.answer({0x20, 3, 2, 0x20, 3, 2}).answer, (Bytes{0x21, 3, 0x11, 0}));
    EXPECT_EQ(bus.answer({0x20, 3, 2, 0x20, 4, 2, 0x20}).answer, (Bytes{0x21, 3, 0x11, 0}));
}

TEST(BusModel, RefusesPollsOfCardsThatHaveNoInputs) {
    BusModel bus = model(kAllKinds);
    EXPECT_EQ(bus.answer({0x20, 5, 2}).answer, (Bytes{0x4E, 5}));
    EXPECT_EQ(bus.answer({0x20, 1, 2}).answer, (Bytes{0x4E, 1}));
    EXPECT_EQ(bus.answer({0x20, 4, 2}).answer, (Bytes{0x4E, 4}));
    EXPECT_EQ(bus.answer({0x20, 16, 2}).answer, (Bytes{0x4E, 16}));
    EXPECT_EQ(bus.answer({0x20, 3}).answer, (Bytes{0x4E, 3}));
    EXPECT_EQ(bus.answer({0x20}).answer, (Bytes{0x4E, 0}));
}

TEST(BusModel, CarriesOutputsOut) {
    BusModel bus = model(kAllKinds);
    const auto reply = bus.answer({0x10, 5, 2, 0xFF, 0xFB});
    EXPECT_EQ(reply.answer, (Bytes{0x06}));
    EXPECT_EQ(reply.change, "card 5 digital-output: FF FB");
    EXPECT_EQ(bus.answer({0x10, 0, 6, 1, 2, 3, 4, 5, 6}).change, "card 0 servo: 01 02 03 04 05 06");
    EXPECT_EQ(bus.answer({0x10, 10, 4, 1, 2, 3, 4}).change, "card A motor: 01 02 03 04");
    EXPECT_EQ(bus.answer({0x10, 14, 1, 1}).change, "card E lcd: light on");
    EXPECT_EQ(bus.answer({0x10, 9, 3, 2, 0x43, 0x4F}).change, "card 9 ir: stream 43 4F");
    EXPECT_EQ(bus.show(5).front(), "5 digital-output: FF FB");
}

TEST(BusModel, RefusesOutputsThatACardDoesNotTake) {
    BusModel bus = model(kAllKinds);
    for (const Bytes& request : {Bytes{0x10, 5, 2, 0xFF}, Bytes{0x10, 5, 1, 0xFF, 0xFF},
                                 Bytes{0x10, 5, 1, 0xFF}, Bytes{0x10, 5}}) {
        const auto reply = bus.answer(request);
        EXPECT_EQ(reply.answer, (Bytes{0x4E, 5})) << zolt_text::hexBytes(request);
        EXPECT_EQ(reply.change, "");
    }
    EXPECT_EQ(bus.answer({0x10, 3, 2, 0, 0}).answer, (Bytes{0x4E, 3}));
    EXPECT_EQ(bus.answer({0x10, 7, 2, 0, 0}).answer, (Bytes{0x4E, 7}));
    EXPECT_EQ(bus.show(5).front(), "5 digital-output: FF FF");
}

TEST(BusModel, AnswersConfigurationWithAddressRegisterAndValue) {
    BusModel bus = model(kAllKinds);
    const auto set = bus.answer({0x50, 0, 0x01, 0xD2, 0x80});
    EXPECT_EQ(set.answer, (Bytes{0x51, 0, 0xD2, 0x80}));
    EXPECT_EQ(set.change, "card 0 servo: end B of channel 2 80");
    const auto get = bus.answer({0x50, 0, 0x40, 0x29});
    EXPECT_EQ(get.answer, (Bytes{0x51, 0, 0x29, 0x80}));
    EXPECT_EQ(get.change, "");
    EXPECT_EQ(bus.answer({0x50, 10, 0x01, 0xC2, 0x10}).answer, (Bytes{0x51, 10, 0xC2, 0x10}));
    EXPECT_EQ(bus.answer({0x50, 10, 0x40, 0x03}).answer, (Bytes{0x51, 10, 0x03, 0x10}));
    EXPECT_EQ(bus.answer({0x50, 15, 0x01, 0x01, 0x3F}).answer, (Bytes{0x51, 15, 0x01, 0x3F}));
    EXPECT_EQ(bus.answer({0x50, 14, 0x01, 0x01, 0x00}).answer, (Bytes{0x51, 14, 0x01, 0x00}));
}

TEST(BusModel, RebootsEveryKind) {
    BusModel bus = model(kAllKinds);
    for (const std::uint8_t address : Bytes{0, 1, 3, 5, 8, 9, 10, 14, 15}) {
        EXPECT_EQ(bus.answer({0x50, address, 0x01, 0xAB}).answer, (Bytes{0x51, address, 0xAB, 0}))
            << int{address};
    }
    EXPECT_EQ(bus.answer({0x50, 4, 0x01, 0xAB}).answer, (Bytes{0x4E, 4}));
    EXPECT_EQ(bus.answer({0x50, 2, 0x01, 0xAB}).answer, std::nullopt);
}

TEST(BusModel, RefusesConfigurationThatACardDoesNotKnow) {
    BusModel bus = model(kAllKinds);
    for (const Bytes& request : {Bytes{0x50, 5, 0x01, 0xC0, 0x00}, Bytes{0x50, 5, 0x40, 0x21},
                                 Bytes{0x50, 5, 0x01}, Bytes{0x50, 5, 0x01, 0xAB, 0x00, 0x00}}) {
        EXPECT_EQ(bus.answer(request).answer, (Bytes{0x4E, 5})) << zolt_text::hexBytes(request);
    }
}

TEST(BusModel, SaysNothingForASilentAddress) {
    BusModel bus = model("2 silent\n");
    EXPECT_EQ(bus.answer({0x20, 2, 2}).answer, std::nullopt);
    EXPECT_EQ(bus.answer({0x10, 2, 2, 0, 0}).answer, std::nullopt);
    EXPECT_EQ(bus.answer({0x50, 2, 0x01, 0xAB}).answer, std::nullopt);
    EXPECT_EQ(bus.answer({0x20, 1, 2}).answer, (Bytes{0x4E, 1}));
}

TEST(BusModel, SaysNothingForAnyEmptyAddressWhenTheBusFileWantsIt) {
    BusModel bus = model("missing silent\n3 digital-input\n");
    EXPECT_EQ(bus.answer({0x20, 1, 2}).answer, std::nullopt);
    EXPECT_EQ(bus.answer({0x20, 200, 2}).answer, std::nullopt);
    EXPECT_EQ(bus.answer({0x10, 3, 1, 0}).answer, (Bytes{0x4E, 3}));
    EXPECT_EQ(bus.answer({0x30}).answer->size(), 17U);
}

TEST(BusModel, RefusesRequestsOfNoKnownType) {
    BusModel bus = model(kAllKinds);
    EXPECT_EQ(bus.answer({0x60, 0x03}).answer, (Bytes{0x4E, 0x03}));
    EXPECT_EQ(bus.answer({0xFF}).answer, (Bytes{0x4E, 0x00}));
    EXPECT_EQ(bus.answer({}).answer, std::nullopt);
}

TEST(BusModel, PressesAndReleasesNumberedInputs) {
    BusModel bus = model("3 digital-input\n");
    EXPECT_EQ(bus.press(3, 6, true), "card 3 digital-input: 40 00");
    EXPECT_EQ(bus.press(3, 8, true), "card 3 digital-input: 40 01");
    EXPECT_EQ(bus.press(3, 15, true), "card 3 digital-input: 40 81");
    EXPECT_EQ(bus.press(3, 6, false), "card 3 digital-input: 00 81");
    EXPECT_EQ(bus.press(3, 6, false), "card 3 digital-input: 00 81");
}

TEST(BusModel, RefusesInputsOfTheWrongKind) {
    BusModel bus = model(kAllKinds);
    EXPECT_EQ(complaintOf([&] { bus.press(5, 0, true); }),
              "address 5 is digital-output, not digital-input");
    EXPECT_EQ(complaintOf([&] { bus.turn(3, 0, 1); }),
              "address 3 is digital-input, not analogue-input");
    EXPECT_EQ(complaintOf([&] { bus.key(4, 1); }), "address 4 is empty, not keymatrix");
    EXPECT_EQ(complaintOf([&] { bus.setInput(2, 0, 1); }),
              "address 2 is silent, not an input card");
    EXPECT_EQ(complaintOf([&] { bus.setInput(3, 2, 1); }), "card 3 has only blocks 0 to 1");
    EXPECT_EQ(complaintOf([&] { bus.turn(15, 6, 1); }), "card F has only blocks 0 to 5");
}

TEST(BusModel, TakesCardsInAndOut) {
    BusModel bus = model("3 digital-input\n");
    const SlotSetup lcd{SlotSetup::Content::kCard, 9};
    EXPECT_EQ(complaintOf([&] { bus.insert(3, lcd); }),
              "address 3 is taken by digital-input: remove it first");
    EXPECT_EQ(bus.remove(3), "card 3 digital-input: removed");
    EXPECT_EQ(complaintOf([&] { bus.remove(3); }), "address 3 is empty already");
    EXPECT_EQ(bus.answer({0x20, 3, 2}).answer, (Bytes{0x4E, 3}));
    EXPECT_EQ(bus.insert(3, lcd), "card 3 lcd: inserted");
    EXPECT_EQ(bus.answer({0x30}).answer->at(4), 9);
    EXPECT_EQ(bus.answer({0x10, 3, 1, 0}).change, "card 3 lcd: cleared");
}

TEST(BusModel, ShowsItself) {
    BusModel bus = model("3 digital-input\n4 silent\n5 code 2A\nA motor\n");
    const auto lines = bus.showAll();
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[0], "0 empty");
    EXPECT_EQ(lines[3], "3 digital-input: 00 00");
    EXPECT_EQ(lines[4], "4 silent");
    EXPECT_EQ(lines[5], "5 code 2A: no state");
    EXPECT_EQ(lines[10], "A motor: 00 00 00 00");
    EXPECT_EQ(bus.show(10),
              (std::vector<std::string>{"A motor: 00 00 00 00",
                                        "  silent ranges 00 00 00, stored 00 00 00"}));
    EXPECT_EQ(bus.show(0), std::vector<std::string>{"0 empty"});
}

}  // namespace
}  // namespace zolt_sim
