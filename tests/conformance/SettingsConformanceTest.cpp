#include "tests/conformance/HostUnderTest.h"

#include <set>

namespace {

constexpr const char* store = "Ocuva.INI";

class SettingsConformance : public HostConformance {
protected:
    TarnLong getInt(const char* section, const char* key, TarnLong defaultValue) {
        return host().tn_reg().TarnRegisterGetInt(section, key, defaultValue, store);
    }
    TarnLong set(const char* section, const char* key, const char* value) {
        return host().tn_reg().TarnRegisterSetString(section, key, value, store);
    }
    std::string getString(const char* section, const char* key, const char* defaultValue) {
        GuardedBuffer buffer(128);
        const TarnLong length = host().tn_reg().TarnRegisterGetString(section, key, defaultValue,
                                                                      buffer.data(), buffer.size(), store);
        EXPECT_TRUE(buffer.intact());
        return buffer.text(length);
    }
};

// Guards against a host that invents values for missing keys.
TEST_P(SettingsConformance, AnAbsentKeyGivesTheCallersDefault) {
    EXPECT_EQ(getInt("No such section", "No such key", -77), -77);
    EXPECT_EQ(getString("No such section", "No such key", "mine"), "mine");
    EXPECT_EQ(host().tn_reg().TarnRegisterGetInt("A", "B", 5, "TARN"), 5);
}

// Guards against delayed writes: the set-up dialog reads its values back at once.
TEST_P(SettingsConformance, AWrittenValueIsReadAtOnce) {
    EXPECT_NE(set("Configuration", "Some number", "42"), 0);
    EXPECT_EQ(getInt("Configuration", "Some number", 0), 42);
    EXPECT_NE(set("Configuration", "Some number", "-3"), 0);
    EXPECT_EQ(getInt("Configuration", "Some number", 0), -3);
    EXPECT_EQ(getString("Configuration", "Some number", ""), "-3");
}

// Guards against a host to which "Z Range" and "z range" are two settings.
TEST_P(SettingsConformance, SectionsAndKeysAreFoundWithoutRegardToCase) {
    set("Fine Parameters", "Z Range", "24");
    EXPECT_EQ(getInt("FINE PARAMETERS", "z range", 0), 24);
}

// Guards against a damaged setting that turns into 0 where the program counts on its default.
TEST_P(SettingsConformance, AValueThatIsNotANumberGivesTheDefault) {
    set("Configuration", "Word", "abc");
    EXPECT_EQ(getInt("Configuration", "Word", 9), 9);
}

// Guards against stores that share their keys.
TEST_P(SettingsConformance, StoresAreApart) {
    set("tn_video", "Own", "1");
    EXPECT_EQ(host().tn_reg().TarnRegisterGetInt("tn_video", "Own", 0, "TARN.INI"), 0);
    EXPECT_EQ(host().tn_reg().TarnRegisterGetInt("tn_video", "Own", 0, "TARN"), 0);
}

// Guards against a host that stores the name of a standard cut or re-coded: it must open the file again.
TEST_P(SettingsConformance, TextsComeBackByteForByte) {
    const std::string name = "C:\\Standards\\Na\xC3\xA4lbit 1; [x]=2.std";
    EXPECT_NE(set("StandardList", "Standard1", name.c_str()), 0);
    EXPECT_EQ(getString("StandardList", "Standard1", ""), name);
}

// Guards against a write past the 128 characters of the standards list's buffer.
TEST_P(SettingsConformance, ALongTextIsCutAtTheBufferAndNotRefused) {
    const std::string text = "abcdefghijklmnopqrstuvwxyz";
    set("StandardList", "Standard1", text.c_str());
    expectBoundedText(text, [&](char* buffer, TarnLong size) {
        return host().tn_reg().TarnRegisterGetString("StandardList", "Standard1", "", buffer, size, store);
    });
    expectBoundedText("given", [&](char* buffer, TarnLong size) {
        return host().tn_reg().TarnRegisterGetString("StandardList", "Absent", "given", buffer, size, store);
    });
}

// Guards against combo boxes that miss an entry or show one that is not there.
TEST_P(SettingsConformance, ASectionIsCountedAndListedFromOne) {
    ocuva::TnLibProxy& general = host().tn_lib_proxy();
    EXPECT_EQ(general.TarnIniEnumNb("List", store), 0);
    set("List", "First", "one");
    set("List", "Second", "two");
    ASSERT_EQ(general.TarnIniEnumNb("List", store), 2);
    for (const TarnLong number : {-1, 0, 3}) {
        GuardedBuffer buffer(200);
        EXPECT_EQ(general.TarnIniEnumString("List", number, buffer.data(), buffer.size(), store), 0);
        EXPECT_TRUE(buffer.intact());
    }
    expectBoundedText("Second=two", [&](char* buffer, TarnLong size) {
        return general.TarnIniEnumString("List", 2, buffer, size, store);
    });
}

// Guards against a log call that ends the program: the call returns for any line.
TEST_P(SettingsConformance, TheLogTakesAnyLine) {
    const std::string longLine(100000, 'x');
    for (const char* line :
         {"", "\n", "ends with CR LF\r\n", "two\nlines", "100 %s %n", "\xFF\xFE", longLine.c_str()}) {
        host().tn_log().TarnPrintfVB(line);
    }
}

// Guards against two objects under one key.
TEST_P(SettingsConformance, UniqueKeysDiffer) {
    std::set<std::string> keys;
    for (int i = 0; i < 1000; ++i) {
        GuardedBuffer buffer(41);
        const TarnLong length = host().Tn_log().TarnGetUniqueObjectKey(buffer.data(), buffer.size());
        EXPECT_GT(length, 0);
        EXPECT_LE(length, 40);
        EXPECT_TRUE(buffer.intact());
        keys.insert(buffer.text(length));
    }
    EXPECT_EQ(keys.size(), 1000U);
    GuardedBuffer small(5);
    EXPECT_EQ(host().Tn_log().TarnGetUniqueObjectKey(small.data(), small.size()), 5);
    EXPECT_TRUE(small.intact());
}

// Guards against scale values computed with factors that were never stored, or stored in place of each other.
TEST_P(SettingsConformance, MagnificationFactorsComeBackAsWritten) {
    ocuva::TnLibProxy& general = host().tn_lib_proxy();
    TarnSingle x = 0.0F;
    TarnSingle y = 0.0F;
    EXPECT_NE(general.TarnGetVideoMag100Factors(&x, &y), 0);
    EXPECT_GT(x, 0.0F);
    EXPECT_GT(y, 0.0F);
    const TarnSingle newX = 2612.375F;
    const TarnSingle newY = 1958.7F;
    EXPECT_NE(general.TarnSetVideoMag100Factors(&newX, &newY), 0);
    EXPECT_NE(general.TarnGetVideoMag100Factors(&x, &y), 0);
    EXPECT_EQ(x, newX);
    EXPECT_EQ(y, newY);
}

INSTANTIATE_TEST_SUITE_P(Hosts, SettingsConformance, testing::ValuesIn(hostsUnderTest()), hostName);

} // namespace
