#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "Corvale/model/AppSettings.h"
#include "Corvale/model/BackgroundJobs.h"
#include "Corvale/model/CancelFlag.h"
#include "Corvale/model/HeaderRowChoices.h"
#include "Corvale/model/LoadedFile.h"
#include "Corvale/model/MatchChoice.h"
#include "Corvale/model/PendingLoads.h"
#include "Corvale/model/Platform.h"
#include "Corvale/model/ReportExport.h"
#include "Corvale/model/ShownResult.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// The state of the window and its whole workflow: open, read, choose sheet and header row, suggest a key, compare,
// filter and browse, export. Lives on the main thread; a call of an operation from another one ends the process. A
// signal is sent once an operation is done and the state whole, and only where the field has another value. Operations
// may be called while one is being received.
class AppModel : public QObject {
    Q_OBJECT

public:
    // A modal sheet over the window.
    enum class Sheet : std::uint8_t { welcome };

    // The platform outlives the model. Reads the settings from its store.
    explicit AppModel(Platform& platform);
    // Lets a running comparison end early.
    ~AppModel() override;
    AppModel(const AppModel&) = delete;
    AppModel& operator=(const AppModel&) = delete;

    const std::optional<LoadedFile>& before() const { return file(Side::before); }
    const std::optional<LoadedFile>& after() const { return file(Side::after); }
    const std::optional<LoadedFile>& file(Side side) const { return m_files[static_cast<std::size_t>(side)]; }
    // The sides whose file is being read, as "before" and "after".
    const std::set<std::string>& loading() const { return m_loading; }
    bool isLoading(Side side) const { return m_pendingLoads.isPending(side); }
    // How rows are paired by the next comparison.
    const MatchChoice& match() const { return m_match; }
    // A column name of Before.
    const std::optional<std::string>& suggestedKey() const { return m_suggestedKey; }
    // The latest comparison that was not discarded; null when there is none. Whoever keeps it lets go of it when
    // resultChanged comes, so that the last reference is dropped off the main thread.
    const std::shared_ptr<const DiffResult>& result() const { return m_result; }
    // The result is of other files or choices than those there are, and no comparison is to come: it was cancelled, or
    // failed.
    bool isResultOutdated() const { return m_isResultOutdated; }
    // 0 to 1 while a comparison runs.
    std::optional<double> progress() const { return m_progress; }
    const DiffFilter& filter() const { return m_filter; }
    // Indexes into the result's rows that pass the filter, ascending.
    const std::vector<std::int64_t>& visible() const { return m_visible; }
    // An index into the result's rows; it need not be visible.
    std::optional<std::int64_t> selectedRow() const { return m_selectedRow; }
    bool showInspector() const { return m_showInspector; }
    // The user's own choice, which showInspector follows.
    bool inspectorWanted() const { return m_inspectorWanted; }
    // A request for the keyboard focus in the search field, which withdraws it.
    bool focusSearch() const { return m_focusSearch; }
    std::optional<Sheet> sheet() const { return m_sheet; }
    // A message for the user, a whole sentence.
    const std::optional<QString>& problem() const { return m_problem; }
    bool exporting() const { return m_exporting; }
    const AppSettings& settings() const { return m_settings; }
    // Of the running comparison; null when none runs.
    const std::shared_ptr<CancelFlag>& compareFlag() const { return m_compareFlag; }
    std::uint64_t compareGeneration() const { return m_compareGeneration; }
    std::uint64_t filterGeneration() const { return m_filterGeneration; }

    // Before's names that After has too when letter case does not count; empty while a side is missing.
    std::vector<std::string> sharedColumns() const;
    // The columns that can be left out of the comparison; empty while a side is missing.
    std::vector<std::string> ignorableColumns() const;
    // The rows that may hold a file's column names; empty while the side is.
    std::vector<HeaderRowChoice> headerRowChoices(Side side) const;
    // The row that the loader takes for them when none is chosen; none while the side is empty.
    std::optional<std::int64_t> automaticHeaderRow(Side side) const;

    // Asks the user for a file; for Before, several may be chosen and fill both sides.
    void choose(Side side);
    // One file fills `side`; of several, the first two fill Before and After.
    void open(const QList<QUrl>& urls, Side side);
    // The side keeps its file until the new one is read, and for good when that fails.
    void load(const QUrl& url, Side side);
    // `index` is one of the file's sheets. A header row chosen for another sheet is forgotten. Nothing happens while
    // another file is read for the side, nor with a sample.
    void setSheet(std::int64_t index, Side side);
    // A 1-based source row number; none for automatic. Else like setSheet().
    void setHeaderRow(std::optional<std::int64_t> row, Side side);
    void close(Side side);
    // Exchanges the files with their choices, also those still being read.
    void swap();
    // Fills both sides with a stock list of two months.
    void openSamples();

    void setMatch(const MatchChoice& choice);
    // Nothing happens while a side is missing. Waits until reading has ended.
    void compare();
    // Reads both files from disk again, all or none, then compares.
    void compareAgain();
    // Ends reading, else comparing. The files and the result that are there stay; a comparison that reading had
    // interrupted goes on.
    void cancel();

    void setFilter(const DiffFilter& filter);
    // An index into the result's rows; none, or one that it does not have, selects nothing.
    void select(std::optional<std::int64_t> row);
    // The next visible row; the first one without a selection. Stops at the end, as selectPrevious() at the start.
    void selectNext();
    void selectPrevious();
    void toggleInspector();
    void setFocusSearch(bool wanted);

    // Asks the user for a place and writes a report there. Nothing happens without a result, or while another report
    // is under way.
    void exportReport(ReportKind kind);
    // Saves at once what differs; other options start a comparison.
    void setSettings(const AppSettings& settings);
    void dismissProblem();

Q_SIGNALS:
    void beforeChanged();
    void afterChanged();
    void loadingChanged();
    void matchChanged();
    void suggestedKeyChanged();
    void resultChanged();
    void isResultOutdatedChanged();
    void progressChanged();
    void filterChanged();
    void visibleChanged();
    void selectedRowChanged();
    void showInspectorChanged();
    void inspectorWantedChanged();
    void focusSearchChanged();
    void sheetChanged();
    void problemChanged();
    void exportingChanged();
    void settingsChanged();
    void compareFlagChanged();
    void compareGenerationChanged();
    void filterGenerationChanged();

private:
    using Signal = void (AppModel::*)();
    // Every operation holds one: it checks the thread, and when the outermost ends, what changed is announced.
    class Operation;

    template <typename Value>
    void set(Value& field, Value value, Signal changed);
    void noteChange(Signal changed);
    void announce();
    // Adds to what the user was not told yet.
    void tell(const QString& problem);
    bool hasBothFiles() const { return m_files[0] && m_files[1]; }
    // No comparison runs before.
    bool isSettled() const { return m_pendingLoads.empty() && !m_isSuggesting; }

    void startLoad(PendingLoads::Id id, std::function<LoadedFile(const CancelCheck&)> work);
    void finishLoad(PendingLoads::Id id, Outcome<LoadedFile>& outcome);
    void storeArrivedFiles();
    void setFile(Side side, std::optional<LoadedFile> file);
    void followPendingLoads();
    void interruptComparison();
    void interruptSuggestion();
    bool canReread(Side side) const;
    // Of a side that can be read anew.
    PendingLoads::Reread wantedReading(Side side) const;
    void restart(Side side, const PendingLoads::Reread& reread);
    std::vector<std::pair<Side, PendingLoads::Reread>> choicesOfUnread() const;
    void startReread(Side side, PendingLoads::Id id, const PendingLoads::Reread& reread);
    void suggestKey();
    void abandonSuggestion();
    void takeSuggestion(std::optional<std::string> proposal);
    void followNamesOfBefore();

    void compareWhenSettled();
    void startComparing();
    void stopComparing();
    // How often a result was made ready for how the user looks at it, which may have changed meanwhile.
    enum class Prepared : std::uint8_t { once, twice };
    // `run` is the number of the comparison.
    void finishComparison(std::uint64_t run, const std::shared_ptr<CancelFlag>& flag, Outcome<ShownResult>& outcome,
                          Prepared prepared);
    void endComparison();
    void adopt(ShownResult shown);
    void clearResult();
    void followOutdated();
    void replaceResult(std::shared_ptr<const DiffResult> result);
    ResultView resultView() const;
    void refilter();
    void stopFiltering();
    // `inUse` were in use when the report was asked for.
    void saveReport(std::shared_ptr<const DiffResult> result, ReportKind kind, const QUrl& url,
                    std::vector<QUrl> inUse);
    // The files that a report must not replace.
    std::vector<QUrl> filesInUse() const;

    Platform& m_platform;
    std::thread::id m_mainThread = std::this_thread::get_id();
    int m_operations = 0;
    std::vector<Signal> m_changes;

    std::array<std::optional<LoadedFile>, 2> m_files;
    std::set<std::string> m_loading;
    MatchChoice m_match;
    std::optional<std::string> m_suggestedKey;
    std::shared_ptr<const DiffResult> m_result;
    bool m_isResultOutdated = false;
    std::optional<double> m_progress;
    DiffFilter m_filter;
    std::vector<std::int64_t> m_visible;
    std::optional<std::int64_t> m_selectedRow;
    bool m_showInspector = true;
    bool m_inspectorWanted = true;
    bool m_focusSearch = false;
    std::optional<Sheet> m_sheet;
    std::optional<QString> m_problem;
    bool m_exporting = false;
    AppSettings m_settings;
    std::shared_ptr<CancelFlag> m_compareFlag;
    std::uint64_t m_compareGeneration = 0;
    std::uint64_t m_filterGeneration = 0;

    PendingLoads m_pendingLoads;
    std::shared_ptr<CancelFlag> m_filterFlag;  // of the newest filtering
    bool m_isPairNew = false;                  // no key was suggested for it yet
    bool m_isMatchChosen = false;    // by the user, for these files: row order then stays though a key is proposed
    bool m_isResultSwapped = false;  // its Before is After now
    bool m_compareOwed = false;      // a comparison waits until reading ends
    bool m_isSuggesting = false;
    bool m_comparesAfterSuggestion = true;
    std::uint64_t m_suggestGeneration = 0;
    bool m_isChoosingTarget = false;                     // the save panel is open
    std::vector<std::shared_ptr<const void>> m_retired;  // large values to destroy once everybody was told

    BackgroundJobs m_jobs;  // last, so that nothing is delivered into a model half gone
};

}  // namespace corvale
