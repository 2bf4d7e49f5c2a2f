#include <QAccessible>
#include <QTest>

#include "Corvale/window/ChipLabel.h"
#include "Corvale/window/SummaryStrip.h"
#include "Corvale/window/SymbolLabel.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;

constexpr auto before = "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n4,Mat,7\n";
constexpr auto after = "ID,Name,Price\n1,Pen,2\n2,Mug,4\n3,Hat,5.00\n5,Ink,1\n6,Jar,2\n";

class SummaryStripTest : public WindowTest {
protected:
    ChipLabel& chip(const std::string& name) { return named<ChipLabel>(name); }
    void click(const std::string& chipName) { QTest::mouseClick(&chip(chipName), Qt::LeftButton); }
    DiffFilter::Show shown() const { return model.filter().show; }
};

TEST_F(SummaryStripTest, ChipsCountTheRowsOfEachKind) {
    compare(before, after);
    for (const auto* name : {"Added 2", "Removed 1", "Changed 2, 3 cells", "Unchanged 1"}) {
        EXPECT_TRUE(shows(name)) << name;
    }
    EXPECT_FALSE(shows("The files match"));
}

TEST_F(SummaryStripTest, NoteIsWideEnough) {
    compare(before, after);
    auto& note = named<SymbolLabel>("1 cells differ only in number format, case or spacing");
    QTest::qWait(50);
    EXPECT_GE(note.width(), note.sizeHint().width());
    qInfo() << note.geometry() << note.sizeHint() << note.parentWidget()->geometry() << note.parentWidget()->sizeHint();
}

}  // namespace
}  // namespace corvale
