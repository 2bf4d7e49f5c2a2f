#include "Corvale/commands/Topic.h"

#include <QCoreApplication>
#include <algorithm>

#include "Corvale/commands/Vendor.h"

namespace corvale {

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(Topic)

public:
    static Topic start() {
        return {
            QStringLiteral("start"),
            tr("Getting started"),
            QStringLiteral("play.circle"),
            {tr("Open the older file on the left (Before) and the newer one on the right (After): click Choose…, "
                "drop the files on the window, or choose File › Open Before… (⌘O). Select two files at once to fill "
                "both sides."),
             tr("Corvale reads Excel workbooks (.xlsx), CSV and TSV. For a workbook with several sheets, pick the "
                "sheet from the menu under its name. The first row with something in it is the header row."),
             tr("Numbers files: in Numbers, choose File › Export To › Excel… (or CSV…) and open the exported file. "
                "Older .xls files: save them as .xlsx first.")}};
    }

    static Topic key() {
        return {
            QStringLiteral("key"),
            tr("Matching rows"),
            QStringLiteral("key"),
            {tr("A key column is a column that names each row once, such as an order number, SKU, employee ID or "
                "email. Rows with the same key are compared with each other, wherever they are in the file, so "
                "sorting or inserting rows doesn't matter."),
             tr("Corvale suggests the column that's filled in on every row, unique, and shared by both files. Pick "
                "another one under Match rows by."),
             tr("Duplicate keys: when a key is on more than one row, the repeats are paired in order (first with "
                "first) and listed under the counts. Rows with an empty key are compared the same way."),
             tr("No key column? Choose Row order: Corvale lines up identical rows and compares the ones in between, "
                "so one inserted row doesn't mark everything after it as changed.")}};
    }

    static Topic ignore() {
        return {QStringLiteral("ignore"),
                tr("What counts as a change"),
                QStringLiteral("slider.horizontal.3"),
                {tr("Ignore case: Apple and APPLE match. Ignore extra spaces: spaces at the ends and doubled spaces "
                    "don't count. Ignore number formatting: 1,250.00, $1250 and 1250 match, and so do 50% and 0.5, and "
                    "007 and 7. Ignore column order: columns are matched by name wherever they are; turn it off to "
                    "compare column A with A, B with B."),
                 tr("Ignore Columns leaves columns such as Last updated out of the comparison."),
                 tr("Cells that differ only in number format, case or spacing are marked in blue and counted "
                    "separately, so you can see them before deciding to ignore them.")}};
    }

    static Topic read() {
        return {
            QStringLiteral("read"),
            tr("Reading the results"),
            QStringLiteral("tablecells"),
            {tr("The counts at the top are filters: click Added, Removed or Changed to list only those rows; click "
                "again to go back to all changes. Unchanged shows every row."),
             tr("Unified view: one line per row, with each changed cell showing the old value struck through and "
                "the new one in bold. Side by side: the Before cells on the left and the After cells on the "
                "right."),
             tr("Show (in the toolbar) picks the rows, the column menu lists only rows with a change in one column, "
                "and Search finds words in any cell. Click a row, or use the arrow keys, to see all of its cells in "
                "Row Details."),
             tr("Comparisons run in the background with a progress bar; 100,000-row files take a few seconds. "
                "Compare › Compare Again (⌘R) reads both files again after you edit them.")}};
    }

    static Topic reports() {
        return {QStringLiteral("reports"),
                tr("Reports"),
                QStringLiteral("square.and.arrow.up"),
                {tr("File › Export Excel Report (⌘E) saves a workbook with three sheets: Summary, Changes (added rows "
                    "green, removed rows red, changed cells yellow) and Cell changes (every changed cell, before and "
                    "after)."),
                 tr("File › Export HTML Report (⇧⌘E) saves one web page you can email or print. It has no scripts and "
                    "loads nothing from the internet.")}};
    }

    static Topic privacy() {
        return {
            QStringLiteral("privacy"),
            tr("Your data and privacy"),
            QStringLiteral("lock.shield"),
            {tr("Corvale reads your spreadsheets on this Mac and keeps nothing from them after you quit. There's no "
                "account and no tracking, and your files are never uploaded.")}};
    }

    static Topic support() {
        return {QStringLiteral("support"),
                tr("Support"),
                QStringLiteral("envelope"),
                {tr("Something is unclear, wrong or missing? Write to %1: a person reads every message. Please do not "
                    "attach your spreadsheets; say what you saw and what you expected.")
                     .arg(QString::fromUtf8(Vendor::supportAddress))}};
    }
};

}  // namespace

bool Topic::contains(const QString& search) const {
    const QString text = title + u'\n' + paragraphs.join(u'\n');
    const QStringList words = search.simplified().split(u' ', Qt::SkipEmptyParts);
    return std::all_of(
        words.begin(), words.end(), [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

QList<Topic> helpTopics() {
    return {Texts::start(),
            Texts::key(),
            Texts::ignore(),
            Texts::read(),
            Texts::reports(),
            Texts::privacy(),
            Texts::support()};
}

}  // namespace corvale
