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
// signal is sent once an operation is done and the state whole, and only where the field has another value.
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

    // --- State

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

    // --- Files

    // Asks the user for a file; for Before, several may be chosen and fill both sides.
    void choose(Side side);
    // One file fills `side`; of several, the first two fill Before and After.
    void open(const QList<QUrl>& urls, Side side);
    // The side keeps its file until the new one is read, and for good when that fails.
    void load(const QUrl& url, Side side);
    // `index` is one of the file's sheets. A header row chosen for another sheet is forgotten.
    void setSheet(std::int64_t index, Side side);
    // A 1-based source row number; none for automatic.
    void setHeaderRow(std::optional<std::int64_t> row, Side side);
    void close(Side side);
    // Exchanges the files with their choices, also those still being read.
    void swap();
    // Fills both sides with a stock list of two months.
    void openSamples();

    // --- Comparing

    void setMatch(const MatchChoice& choice);
    // Nothing happens while a side is missing.
    void compare();
    // Reads both files from disk again, all or none, then compares.
    void compareAgain();
    // Ends reading, else comparing; what is there stays.
    void cancel();

    // --- Browsing

    void setFilter(const DiffFilter& filter);
    // An index into the result's rows; none, or one that it does not have, selects nothing.
    void select(std::optional<std::int64_t> row);
    // The next visible row; the first one without a selection. Stops at the end, as selectPrevious() at the start.
    void selectNext();
    void selectPrevious();
    void toggleInspector();
    void setFocusSearch(bool wanted);

    // --- Reports, settings, messages

    // Asks the user for a place and writes a report there. Nothing happens without a result, or while one is written.
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
    // What becomes of the match when new tables lack the chosen key, or none was chosen.
    enum class RowOrder : std::uint8_t { replacedBySuggestion, kept };

    template <typename Value>
    void set(Value& field, Value value, Signal changed);
    void noteChange(Signal changed);
    void announce();
    bool hasBothFiles() const { return m_files[0] && m_files[1]; }
    bool isSettled() const { return m_pendingLoads.empty() && !m_isSuggesting; }

    void startLoad(PendingLoads::Id id, std::function<LoadedFile()> work);
    void finishLoad(PendingLoads::Id id, Outcome<LoadedFile>& outcome);
    void storeArrivedFiles();
    void setFile(Side side, std::optional<LoadedFile> file);
    void updateLoading();
    void interruptComparison();
    void reparse(Side side, std::int64_t sheet, std::optional<std::int64_t> headerRow);
    void suggestKey();
    void abandonSuggestion();
    void takeSuggestion(std::optional<std::string> proposal);
    void followNamesOfBefore();

    void compareWhenSettled();
    void stopComparing();
    // `run` is the number of the comparison.
    void finishComparison(std::uint64_t run, const std::shared_ptr<CancelFlag>& flag, Outcome<ShownResult>& outcome);
    void endComparison();
    void adopt(ShownResult& shown);
    void clearResult();
    void replaceResult(std::shared_ptr<const DiffResult> result);
    ResultView resultView() const;
    void refilter();
    void selectVisible(std::ptrdiff_t place);
    void saveReport(const std::shared_ptr<const DiffResult>& result, ReportKind kind, const QUrl& url);
    bool isComparedFile(const QUrl& url) const;

    Platform& m_platform;
    std::thread::id m_mainThread = std::this_thread::get_id();
    int m_operations = 0;
    std::vector<Signal> m_changes;

    std::array<std::optional<LoadedFile>, 2> m_files;
    std::set<std::string> m_loading;
    MatchChoice m_match;
    std::optional<std::string> m_suggestedKey;
    std::shared_ptr<const DiffResult> m_result;
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
    bool m_pairChanged = false;                // since the last suggestion was asked for
    RowOrder m_rowOrder = RowOrder::replacedBySuggestion;
    bool m_compareOwed = false;  // a comparison waits until reading ends
    bool m_isSuggesting = false;
    bool m_comparesAfterSuggestion = true;
    std::uint64_t m_suggestGeneration = 0;
    std::vector<std::shared_ptr<const void>> m_retired;  // large values to destroy once everybody was told

    BackgroundJobs m_jobs;  // last, so that nothing is delivered into a model half gone
};

}  // namespace corvale
