// The reader of gpg's machine-readable key list, over what gpg 2.2 printed for a home with a key of
// two user ids and an encryption subkey, one without expiry whose name holds a colon, and an RSA key;
// then lines cut short, out of order or garbled.
#include "settings/GpgKeyListParser.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

// gpg --list-secret-keys --keyid-format=long --with-colons
constexpr std::string_view listed =
    "sec:u:255:22:268218A8A083A2A7:1795653502:1893499200::u:::scESC:::+::ed25519:::0:\n"
    "fpr:::::::::191827AB3942844BB071DE73268218A8A083A2A7:\n"
    "grp:::::::::0FCD698A423E91566379D67F15CA9A15452A68CB:\n"
    "uid:u::::1795653504::2497053F9C2773D17B954FB4DA36D6414637157D::Second Identity "
    "<second@orvel.invalid>::::::::::0:\n"
    "uid:u::::1795653502::DE95940FB81701ADDFDE316067188CFF50C36078::Signer Name (work) "
    "<signer@orvel.invalid>::::::::::0:\n"
    "ssb:u:255:18:093E644778CA4BAD:1795653504:1938081600:::::e:::+::cv25519::\n"
    "fpr:::::::::E3C47C20F0D82322F5E778DD093E644778CA4BAD:\n"
    "grp:::::::::DCE587338B2A2DD18021D49EFA322AEAA6E32DE9:\n"
    "sec:u:255:22:21495EBF673A16F5:1795653502:::u:::scSC:::+::ed25519:::0:\n"
    "fpr:::::::::D1440A1EB3D07B43F5B4E59921495EBF673A16F5:\n"
    "grp:::::::::0EA1ED8DA9F44046BC928F47067BDF4D7379E5E3:\n"
    "uid:u::::1795653502::93E386AF9C6631725B4C62B5FB503ED03D16C864::No\\x3a Expiry "
    "<noexp@orvel.invalid>::::::::::0:\n"
    "sec:u:2048:1:A5366159514B8EDE:1795653504:1867320000::u:::scSC:::+:::23::0:\n"
    "fpr:::::::::9322E1F6F7DCF77C68D8D27FA5366159514B8EDE:\n"
    "grp:::::::::AA8F1F0234FCD2985ACDF920B04E885690816225:\n"
    "uid:u::::1795653504::CA3DF8B422BBDEDAAC0FD32A98FBCFC9F450B043::Old RSA <rsa@orvel.invalid>::::::::::0:";

struct Case {
    const char* name;
    std::string_view text;
    std::vector<GpgSecretKey> expected;
};

TEST(GpgKeyListParser, ReadsEachSecretKeyWithItsFirstUserIdAndExpiry) {
    const std::vector<Case> cases = {
        {"real listing",
         listed,
         {{"268218A8A083A2A7", "Second Identity <second@orvel.invalid>", 1893499200},
          {"21495EBF673A16F5", "No: Expiry <noexp@orvel.invalid>", std::nullopt},
          {"A5366159514B8EDE", "Old RSA <rsa@orvel.invalid>", 1867320000}}},
        {"empty", "", {}},
        {"a sec line of nine fields begins no key",
         "sec:u:255:22:AAAA:1:2::u\nuid:u::::1::H::Lost <l@x>:\n",
         {}},
        {"a uid line of nine fields names no key",
         "sec:u:255:22:AAAA:1:::u:::scSC:\nuid:u::::1::H:\nuid:u::::1::H::Kept <k@x>:\n",
         {{"AAAA", "Kept <k@x>", std::nullopt}}},
        {"a key without user id is dropped",
         "sec:u:255:22:AAAA:1:::u:::scSC:\nsec:u:255:22:BBBB:1:::u:::scSC:\nuid:u::::1::H::B <b@x>:\n",
         {{"BBBB", "B <b@x>", std::nullopt}}},
        {"a uid before any sec is ignored", "uid:u::::1::H::Stray <s@x>:\n", {}},
        {"an unreadable or empty key id and expiry",
         "sec:u:255:22::1:5::u:::scSC:\nuid:u::::1::H::None <n@x>:\n"
         "sec:u:255:22:CCCC:1:20300101T000000::u:::scSC:\nuid:u::::1::H::C <c@x>:\n",
         {{"CCCC", "C <c@x>", std::nullopt}}},
        {"escapes cut short or not hex stay as they are",
         "sec:u:255:22:DDDD:1:::u:::scSC:\nuid:u::::1::H::a\\x5cb \\x4 \\xZZ \\x:\n",
         {{"DDDD", "a\\b \\x4 \\xZZ \\x", std::nullopt}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(parseGpgSecretKeys(c.text), c.expected);
    }
}

} // namespace
