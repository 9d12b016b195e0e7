#include "hosts/common/bus/BusFrame.h"

#include <gtest/gtest.h>
#include <random>

namespace hosts {

namespace {

const BusMessage wakeUp = {"TN_OCUVA_SERVER", "", "OCUVA_WAKEUP"};

std::string frameOf(const BusMessage& message) { return encodeBusFrame(message).value_or(""); }

/// A frame with any body.
std::string rawFrame(const std::string& body) {
    std::string frame = "OCUB\x01";
    for (unsigned shift = 0; shift < 32; shift += 8) {
        frame += static_cast<char>((body.size() >> shift) & 0xFFU);
    }
    return frame + body;
}

TEST(BusFrame, HasTheFormThatOtherProcessesExpect) {
    EXPECT_EQ(frameOf({"AB", "", "C"}), std::string("OCUB\x01\x09\0\0\0\x02\0AB\0\0\x01\0C", 18));
}

TEST(BusFrame, BringsEveryMessageBackWhole) {
    const std::string everyByte = [] {
        std::string bytes;
        for (int value = 0; value < 256; ++value) {
            bytes += static_cast<char>(value);
        }
        return bytes;
    }();
    for (const BusMessage& message : {BusMessage{}, wakeUp, BusMessage{everyByte, everyByte, everyByte},
                                      BusMessage{"", std::string(16000, 'x'), ""}}) {
        const std::string frame = frameOf(message);
        const DecodedFrame decoded = decodeBusFrame(frame + "next");
        EXPECT_EQ(decoded.state, FrameState::complete);
        EXPECT_EQ(decoded.usedBytes, frame.size());
        EXPECT_EQ(decoded.message, message);
    }
}

TEST(BusFrame, WaitsForMoreAfterEveryBeginningOfAFrame) {
    const std::string frame = frameOf(wakeUp);
    for (std::size_t length = 0; length < frame.size(); ++length) {
        EXPECT_EQ(decodeBusFrame(std::string_view(frame).substr(0, length)).state, FrameState::incomplete)
            << length;
    }
}

TEST(BusFrame, RefusesAnInvalidFrameAtItsFirstWrongByte) {
    EXPECT_EQ(decodeBusFrame("X").state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame("OCUX").state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame("OCUB\x02").state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame(std::string("OCUB\x01\xFF\xFF\xFF\xFF", 9)).state, FrameState::malformed);
}

TEST(BusFrame, RefusesTextsThatDoNotFillTheirFrameExactly) {
    const std::string texts("\x01\0A\x01\0B\x01\0C", 9);
    EXPECT_EQ(decodeBusFrame(rawFrame(texts)).state, FrameState::complete);
    EXPECT_EQ(decodeBusFrame(rawFrame(texts + "D")).state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame(rawFrame(texts.substr(0, 8))).state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame(rawFrame("")).state, FrameState::malformed);
    EXPECT_EQ(decodeBusFrame(rawFrame("\x01")).state, FrameState::malformed);
}

TEST(BusFrame, IsAtMostSixteenKibibytesLong) {
    const std::size_t overhead = frameOf({}).size();
    EXPECT_EQ(frameOf({"", "", std::string(busFrameMaxBytes - overhead, 'x')}).size(), busFrameMaxBytes);
    EXPECT_FALSE(encodeBusFrame({"", "", std::string(busFrameMaxBytes - overhead + 1, 'x')}));
    EXPECT_FALSE(encodeBusFrame({std::string(1000000, 'x'), "", ""}));
    const std::string longest(busFrameMaxBytes - 9, '\0');
    EXPECT_EQ(decodeBusFrame(rawFrame(longest).substr(0, 100)).state, FrameState::incomplete);
    EXPECT_EQ(decodeBusFrame(rawFrame(longest + '\0').substr(0, 100)).state, FrameState::malformed);
}

TEST(BusFrame, SurvivesAnyBytes) {
    std::mt19937 random(20240229);
    for (int round = 0; round < 200000; ++round) {
        std::string bytes = frameOf({"COMPONENT", "SUB", "ID"});
        const unsigned changes = random() % 4;
        for (unsigned i = 0; i <= changes; ++i) {
            bytes[random() % bytes.size()] = static_cast<char>(random() % 256);
        }
        bytes.resize(random() % (bytes.size() + 8), 'z');
        const DecodedFrame decoded = decodeBusFrame(bytes);
        EXPECT_LE(decoded.usedBytes, bytes.size());
        EXPECT_EQ(decoded.state == FrameState::complete, decoded.usedBytes > 0);
    }
}

TEST(BusFilter, LetsTheNamedComponentThroughLetterForLetter) {
    const BusFilter filter("DST_APP=TN_OCUVA_SERVER");
    EXPECT_TRUE(filter.letsThrough(wakeUp));
    EXPECT_FALSE(filter.letsThrough({"tn_ocuva_server", "", "OCUVA_WAKEUP"}));
    EXPECT_FALSE(filter.letsThrough({"TN_OCUVA_SERVER2", "", "OCUVA_WAKEUP"}));
    EXPECT_FALSE(filter.letsThrough({"", "TN_OCUVA_SERVER", "OCUVA_WAKEUP"}));
}

TEST(BusFilter, LetsEverythingThroughWhenItIsEmpty) {
    EXPECT_TRUE(BusFilter("").letsThrough(wakeUp));
    EXPECT_TRUE(BusFilter("").letsThrough({}));
}

TEST(BusFilter, LetsNothingThroughWhenItIsNotUnderstood) {
    for (const char* text :
         {"DST_APP", "dst_app=TN_OCUVA_SERVER", " DST_APP=TN_OCUVA_SERVER", "TN_OCUVA_SERVER"}) {
        const BusFilter filter(text);
        EXPECT_FALSE(filter.isUnderstood());
        EXPECT_FALSE(filter.letsThrough(wakeUp)) << text;
    }
    EXPECT_TRUE(BusFilter("DST_APP=X").isUnderstood());
}

TEST(MessageName, MatchesItsIdentifierInAnyLetterCase) {
    EXPECT_EQ(messageOfName("OCUVA_WakeUp"), wakeUp);
    EXPECT_EQ(messageOfName("ocuva_is_server_up").id, "OCUVA_IS_SERVER_UP");
    EXPECT_EQ(messageOfName("Ocuva_AutoFocus").id, "OCUVA_AUTOFOCUS");
    EXPECT_EQ(messageOfName("OCUVA_SLEEP").id, "OCUVA_SLEEP");
}

TEST(MessageName, IsSentUnchangedIfItIsUnknown) {
    EXPECT_EQ(messageOfName("Ocuva_Sleep "), (BusMessage{"TN_OCUVA_SERVER", "", "Ocuva_Sleep "}));
    EXPECT_EQ(messageOfName(""), (BusMessage{"TN_OCUVA_SERVER", "", ""}));
}

} // namespace

} // namespace hosts
