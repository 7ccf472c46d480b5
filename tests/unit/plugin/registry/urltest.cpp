// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

namespace
{

struct Join {
    const char* name;
    const char* base;
    const char* path;
    const char* url; ///< encoded
};

class FormedUrl : public ::testing::TestWithParam<Join>
{
};

TEST_P(FormedUrl, path_isJoinedToTheBase)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    EXPECT_EQ(interface.formUrl(GetParam().base, GetParam().path).toEncoded(), GetParam().url);
}

INSTANTIATE_TEST_SUITE_P(
    Joins, FormedUrl,
    ::testing::Values(
        Join{"slashAtTheEndOfThePrefix", "https://r.example/api/", "/MedicationDispense/$register",
             "https://r.example/api/MedicationDispense/$register"},
        Join{"prefixWithoutSlash", "https://r.example/api", "/MedicationDispense/$register",
             "https://r.example/api/MedicationDispense/$register"},
        Join{"noPath", "https://r.example", "/MedicationDispense/$register",
             "https://r.example/MedicationDispense/$register"},
        Join{"rootPath", "https://r.example/", "/connect/token", "https://r.example/connect/token"},
        Join{"portAndQueryStay", "http://user@r.example:8080/a?key=1", "/connect/token",
             "http://user@r.example:8080/a/connect/token?key=1"},
        Join{"twoSlashesBecomeOne", "http://r.example", "/MedicationDispense//$set-as-error",
             "http://r.example/MedicationDispense/$set-as-error"},
        Join{"threeSlashesBecomeTwo", "http://r.example", "/a///b", "http://r.example/a//b"},
        Join{"slashesInTheBaseToo", "http://r.example/a//b", "/c", "http://r.example/a/b/c"},
        Join{"encodedBaseIsDecodedAndEncodedAgain", "http://r.example/a%20b%25", "/c", "http://r.example/a%20b%25/c"},
        Join{"cyrillicPath", "http://r.example/реестр", "/c",
             "http://r.example/%D1%80%D0%B5%D0%B5%D1%81%D1%82%D1%80/c"},
        Join{"encodedSlashInTheBaseBecomesASlash", "http://r.example/a%2Fb", "/c", "http://r.example/a/b/c"},
        Join{"encodedPercentInTheBaseStaysOne", "http://r.example/a%252Fb", "/c", "http://r.example/a%252Fb/c"},
        Join{"ipv6", "https://[2001:db8::1]:8443/api", "/c", "https://[2001:db8::1]:8443/api/c"},
        Join{"cyrillicHost", "https://реестр.рф:8443/api", "/c", "https://xn--e1aa5aceg.xn--p1ai:8443/api/c"},
        Join{"blankInTheBaseIsTolerated", "http://r.example/a b", "/c", "http://r.example/a%20b/c"},
        Join{"percentInThePathIsOne", "http://r.example", "/a%1b%41", "http://r.example/a%251b%2541"},
        Join{"questionMarkAndHashStayInThePath", "http://r.example", "/a?b#c", "http://r.example/a%3Fb%23c"}),
    [](const auto& row) { return std::string(row.param.name); });

class BadBase : public ::testing::TestWithParam<std::pair<const char*, const char*>>
{
};

TEST_P(BadBase, request_hasNoHostToGoTo)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    QUrl url = interface.formUrl(GetParam().second, "/connect/token");
    EXPECT_EQ(url, QUrl());
    url.setQuery("a=1"); // as sendGetRequest() does; it makes an invalid URL valid
    EXPECT_TRUE(url.host().isEmpty()) << url.toString().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Bases, BadBase,
                         ::testing::Values(std::pair("portBeyond65535", "https://r.example:84433"),
                                           std::pair("portNoNumber", "https://r.example:https"),
                                           std::pair("negativePort", "https://r.example:-1"),
                                           std::pair("blankInHost", "https://r example"),
                                           std::pair("ipv6NotClosed", "https://[2001:db8::1"),
                                           std::pair("ipv6WithALetterBeyondF", "https://[2001:db8::g]")),
                         [](const auto& row) { return std::string(row.param.first); });

} // namespace
