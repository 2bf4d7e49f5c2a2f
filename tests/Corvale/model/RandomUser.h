#pragma once

#include <QObject>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/PanelAnswers.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::TestSupport {

// Does to a model what a user may do, at random and too quickly, with files that change and vanish under its hands;
// then looks whether the model is in order. The same seed does the same, but for what background work makes of it.
class RandomUser {
public:
    // How the model's platform is worked. All outlives this object.
    struct Surroundings {
        std::function<void()> deliver;  // what is there for the main thread by now
        std::function<void()> settle;   // until nothing is left to do
        PanelAnswers& answers;
    };
    RandomUser(AppModel& model, Surroundings surroundings, unsigned seed);

    // That many operations, and a look at the model every few of them.
    void work(int operations);
    // The same without waiting for anything, and without a look.
    void rush(int operations);
    // Sees to it that there was something to look at. After a thousand operations at least.
    void expectVariety() const;

private:
    // What the looks found.
    struct Tally {
        int looks = 0;
        int withResult = 0;
        int byKey = 0;
        int withSelection = 0;
        int problems = 0;
        int reports = 0;
    };

    using Action = void (RandomUser::*)();

    std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    bool chance(std::size_t one) { return below(one) == 0; }
    Side side() { return chance(2) ? Side::before : Side::after; }
    void log(const std::string& text) { m_log += text + "; "; }

    void act();
    QUrl anyFile();
    QUrl anyTarget();
    std::size_t anyContent();
    void changeFile();
    void choose();
    void open();
    void openBoth();
    void openSamples();
    void close();
    void swap();
    void setSheet();
    void setHeaderRow();
    void setMatch();
    void compare();
    void compareAgain();
    void cancel();
    void setFilter();
    void select();
    void walk();
    void togglePane();
    void setOptions();
    void exportReport();

    void follow();
    void expectOrder();
    void expectQuiet() const;
    void expectSoundResult();
    void expectNothingShown() const;
    void expectKnownProblem();
    void expectAnnounced() const;
    bool isUpToDate() const;

    // What was announced, by the signals alone.
    struct Mirror {
        std::string before;
        std::string after;
        std::set<std::string> loading;
        MatchChoice match;
        std::optional<std::string> suggestedKey;
        const DiffResult* result = nullptr;
        std::optional<double> progress;
        DiffFilter filter;
        std::vector<std::int64_t> visible;
        std::optional<std::int64_t> selectedRow;
        std::optional<QString> problem;
        bool exporting = false;
        AppSettings settings;

        static Mirror of(const AppModel& model);
        friend bool operator==(const Mirror&, const Mirror&) = default;
    };

    AppModel& m_model;
    Surroundings m_surroundings;
    std::mt19937 m_random;
    ScratchFolder m_folder;
    std::string m_log;  // of the operations since the last look
    bool m_wasCancelled = false;
    DiffFilter m_filter;  // as last asked for
    std::set<QString> m_problems;
    Mirror m_mirror;
    QObject m_receiver;
    Tally m_tally;
};

}  // namespace corvale::TestSupport
