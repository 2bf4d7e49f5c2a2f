#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelSettingsTest : public ModelTest {
protected:
    static AppSettings changed(const std::function<void(AppSettings&)>& change, AppSettings settings = {}) {
        change(settings);
        return settings;
    }
};

TEST(AppModelStoredSettingsTest, AnEmptyStoreGivesTheDefaultsAndTheWelcomeSheet) {
    ScriptedPlatform platform;
    const AppModel model(platform);
    EXPECT_EQ(model.settings(), AppSettings());
    EXPECT_EQ(model.sheet(), AppModel::Sheet::welcome);
    EXPECT_EQ(platform.stores, 0);
}

TEST(AppModelStoredSettingsTest, WhatWasStoredIsThereAgain) {
    ScriptedPlatform platform;
    platform.stored["settings"] = R"({"view":"sideBySide","onboardingDone":true})";
    const AppModel model(platform);
    EXPECT_TRUE(model.settings().onboardingDone);
    EXPECT_EQ(model.settings().view, ViewMode::sideBySide);
    EXPECT_EQ(model.settings().options, DiffOptions());
    EXPECT_EQ(model.sheet(), std::nullopt);
    EXPECT_EQ(platform.stores, 0);
}

TEST(AppModelStoredSettingsTest, ADamagedStoreGivesTheDefaultsAndSaysNothing) {
    const std::string deeplyNested =
        R"({"options":{"ignoredColumns":)" + std::string(100000, '[') + std::string(100000, ']') + "}}";
    const std::vector<std::string> damaged = {"",
                                              "{",
                                              "null",
                                              "[]",
                                              "7",
                                              R"({"view":"3D","onboardingDone":true})",
                                              std::string("{\"view\":\"\xff\"}"),
                                              std::string(100000, '['),
                                              deeplyNested};
    for (const std::string& data : damaged) {
        ScriptedPlatform platform;
        platform.stored["settings"] = data;
        const AppModel model(platform);
        EXPECT_EQ(model.settings(), AppSettings()) << data.substr(0, 40);
        EXPECT_EQ(model.problem(), std::nullopt);
    }
}

TEST_F(AppModelSettingsTest, EachChangeIsStoredAtOnceInItsWholeForm) {
    m_model.setSettings(changed([](AppSettings& s) { s.onboardingDone = true; }));
    EXPECT_EQ(m_platform.stores, 1);
    EXPECT_EQ(m_platform.stored["settings"],
              R"({"onboardingDone":true,"options":{"ignoreCase":false,"ignoreWhitespace":true,)"
              R"("ignoreNumberFormat":false,"ignoreColumnOrder":true,"ignoredColumns":[],"numberStyle":"automatic"},)"
              R"("view":"unified","includeUnchangedInReports":false})");
    AppModel next(m_platform);
    EXPECT_EQ(next.settings(), m_model.settings());
    EXPECT_EQ(next.sheet(), std::nullopt);
}

TEST_F(AppModelSettingsTest, EqualSettingsStoreAndCompareNothing) {
    openPair();
    m_model.setSettings(m_model.settings());
    EXPECT_EQ(m_platform.stores, 0);
    EXPECT_EQ(m_watch.take(), "");
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelSettingsTest, OnlyOtherOptionsCompareAgain) {
    const std::vector<std::pair<std::function<void(AppSettings&)>, bool>> cases = {
        {[](AppSettings& s) { s.onboardingDone = true; }, false},
        {[](AppSettings& s) { s.view = ViewMode::sideBySide; }, false},
        {[](AppSettings& s) { s.includeUnchangedInReports = true; }, false},
        {[](AppSettings& s) { s.options.ignoreCase = true; }, true},
        {[](AppSettings& s) { s.options.ignoreWhitespace = false; }, true},
        {[](AppSettings& s) { s.options.ignoreNumberFormat = true; }, true},
        {[](AppSettings& s) { s.options.ignoreColumnOrder = false; }, true},
        {[](AppSettings& s) { s.options.ignoredColumns = {"Price"}; }, true},
        {[](AppSettings& s) { s.options.numberStyle = NumberStyle::commaDecimal; }, true},
    };
    openPair();
    int stores = 0;
    for (const auto& [change, compares] : cases) {
        const AppSettings settings = changed(change, m_model.settings());
        const auto generation = m_model.compareGeneration();
        m_model.setSettings(settings);
        EXPECT_EQ(m_model.settings(), settings);
        EXPECT_EQ(m_platform.stores, ++stores);
        EXPECT_EQ(m_model.compareGeneration(), generation + (compares ? 1 : 0)) << stores;
        m_platform.settle();
        EXPECT_EQ(m_model.result()->options, settings.options);
    }
}

TEST_F(AppModelSettingsTest, TheWelcomeSheetFollowsTheSettings) {
    m_model.setSettings(changed([](AppSettings& s) { s.view = ViewMode::sideBySide; }));
    EXPECT_EQ(m_model.sheet(), AppModel::Sheet::welcome);
    m_watch.take();
    m_model.setSettings(changed([](AppSettings& s) { s.onboardingDone = true; }));
    EXPECT_EQ(m_model.sheet(), std::nullopt);
    EXPECT_EQ(m_watch.take(), "settings sheet");
    m_model.setSettings({});
    EXPECT_EQ(m_model.sheet(), AppModel::Sheet::welcome);
}

TEST_F(AppModelSettingsTest, OptionsChangedWhileAPairLoadsHoldForIt) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    const AppSettings settings = changed([](AppSettings& s) { s.options.ignoredColumns = {"Price"}; });
    m_model.setSettings(settings);
    EXPECT_EQ(m_model.compareGeneration(), 0U);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->options, settings.options);
    EXPECT_EQ(m_model.compareGeneration(), 1U);
}

TEST_F(AppModelSettingsTest, OptionsChangedWhileAFileIsReplacedAreComparedThoughItFails) {
    openPair();
    load("gone.csv", Side::after);
    const AppSettings settings = changed([](AppSettings& s) { s.options.ignoredColumns = {"Price"}; });
    m_model.setSettings(settings);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->options, settings.options);
}

TEST_F(AppModelSettingsTest, OptionsChangedWhileComparingAreComparedInstead) {
    openPair();
    m_model.compare();
    m_platform.work();
    const AppSettings settings = changed([](AppSettings& s) { s.options.ignoredColumns = {"Price"}; });
    m_model.setSettings(settings);
    m_platform.deliver();
    EXPECT_EQ(m_model.result()->options, DiffOptions());
    m_platform.settle();
    EXPECT_EQ(m_model.result()->options, settings.options);
}

TEST_F(AppModelSettingsTest, OptionsChangedAfterCancellingASuggestionAreCompared) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step();
    step();
    m_model.cancel();
    m_model.setSettings(changed([](AppSettings& s) { s.options.ignoreCase = true; }));
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

}  // namespace
}  // namespace corvale
