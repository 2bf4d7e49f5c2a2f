#include <gtest/gtest.h>

#include "Corvale/model/AppSettings.h"
#include "CorvaleKit/base/Failures.h"

namespace corvale {
namespace {

AppSettings decoded(const std::string& json) { return AppSettings::decoded(json); }

AppSettings unusual() {
    AppSettings settings;
    settings.onboardingDone = true;
    settings.options.ignoreCase = true;
    settings.options.ignoreWhitespace = false;
    settings.options.ignoreNumberFormat = true;
    settings.options.ignoreColumnOrder = false;
    settings.options.ignoredColumns = {"Größe", "“quoted” \"plainly\"\n"};
    settings.options.numberStyle = NumberStyle::commaDecimal;
    settings.view = ViewMode::sideBySide;
    settings.includeUnchangedInReports = true;
    return settings;
}

TEST(AppSettings, HasItsDefaults) {
    const AppSettings settings;
    EXPECT_FALSE(settings.onboardingDone);
    EXPECT_EQ(settings.options, DiffOptions());
    EXPECT_EQ(settings.view, ViewMode::unified);
    EXPECT_FALSE(settings.includeUnchangedInReports);
}

TEST(AppSettings, StoresItsFieldsUnderTheirNames) {
    EXPECT_EQ(AppSettings().encoded(),
              R"({"onboardingDone":false,"options":{"ignoreCase":false,"ignoreWhitespace":true,)"
              R"("ignoreNumberFormat":false,"ignoreColumnOrder":true,"ignoredColumns":[],"numberStyle":"automatic"},)"
              R"("view":"unified","includeUnchangedInReports":false})");
}

TEST(AppSettings, EveryFieldComesBack) {
    EXPECT_EQ(decoded(AppSettings().encoded()), AppSettings());
    EXPECT_EQ(decoded(unusual().encoded()), unusual());
}

TEST(AppSettings, EveryFieldCountsForEquality) {
    const AppSettings all = unusual();
    AppSettings settings;
    settings.onboardingDone = all.onboardingDone;
    EXPECT_NE(settings, AppSettings());
    settings = {};
    settings.options = all.options;
    EXPECT_NE(settings, AppSettings());
    settings = {};
    settings.view = all.view;
    EXPECT_NE(settings, AppSettings());
    settings = {};
    settings.includeUnchangedInReports = true;
    EXPECT_NE(settings, AppSettings());
}

TEST(AppSettings, AMissingOrNullFieldTakesItsDefault) {
    AppSettings sideBySide;
    sideBySide.view = ViewMode::sideBySide;
    AppSettings done;
    done.onboardingDone = true;
    AppSettings ignoringCase;
    ignoringCase.options.ignoreCase = true;
    const std::vector<std::pair<std::string, AppSettings>> cases = {
        {"{}", {}},
        {R"({"view":"sideBySide"})", sideBySide},
        {R"({"includeUnchangedInReports":null,"view":"sideBySide","options":null,"onboardingDone":null})", sideBySide},
        {R"({"view":null,"onboardingDone":true})", done},
        {R"({"options":{"ignoreCase":true}})", ignoringCase},
        {R"({"options":{"ignoreCase":true,"ignoredColumns":null},"later":{"a":[1]}})", ignoringCase},
        {" {\n\t\"view\" : \"sideBySide\" } ", sideBySide},
    };
    for (const auto& [json, settings] : cases) {
        EXPECT_EQ(decoded(json), settings) << json;
    }
}

TEST(AppSettings, AFieldOfTheWrongTypeOrAnUnknownValueFailsTheWhole) {
    const std::vector<std::string> values = {
        R"("onboardingDone":1)",
        R"("onboardingDone":"true")",
        R"("options":[])",
        R"("options":true)",
        R"("options":{"ignoreCase":0})",
        R"("options":{"ignoredColumns":"Price"})",
        R"("options":{"ignoredColumns":[1]})",
        R"("options":{"numberStyle":"roman"})",
        R"("view":"SideBySide")",
        R"("view":"")",
        R"("view":0)",
        R"("view":["unified"])",
        R"("includeUnchangedInReports":"no")",
    };
    for (const std::string& value : values) {
        EXPECT_THROW(decoded("{" + value + "}"), DecodingError) << value;
    }
}

TEST(AppSettings, WhatIsNoJsonObjectFails) {
    for (const std::string json : {"", " ", "null", "[]", "7", "\"settings\"", "{", "{}}", "{\"view\"}", "\xff\xfe"}) {
        EXPECT_THROW(decoded(json), DecodingError) << json;
    }
}

TEST(ViewMode, HasItsStoredTexts) {
    EXPECT_EQ(rawValue(ViewMode::unified), "unified");
    EXPECT_EQ(rawValue(ViewMode::sideBySide), "sideBySide");
}

}  // namespace
}  // namespace corvale
