#include "Corvale/window/ViewPicker.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

ViewPicker::ViewPicker(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_unified(makeSegment(ViewMode::unified, tr("Unified"))),
      m_sideBySide(makeSegment(ViewMode::sideBySide, tr("Side by side"))) {
    setAccessibleName(tr("View"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    auto* const group = new QButtonGroup(this);
    for (Button* segment : {m_unified, m_sideBySide}) {
        row->addWidget(segment);
        group->addButton(segment);
    }
    connect(&model, &AppModel::settingsChanged, this, &ViewPicker::refresh);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

Button* ViewPicker::makeSegment(ViewMode view, const QString& label) {
    auto* const segment = new Button(Button::Face::segment, m_theme, this);
    segment->setCheckable(true);
    segment->setLabel(label);
    segment->setHelp(
        tr("Unified: one row per difference, old and new values together. Side by side: Before and After next to each "
           "other."));
    connect(segment, &Button::clicked, this, [this, view] {
        Edit::settings(m_model, [view](AppSettings& settings) { settings.view = view; });
    });
    return segment;
}

void ViewPicker::refresh() {
    (m_model.settings().view == ViewMode::unified ? m_unified : m_sideBySide)->setChecked(true);
}

void ViewPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Drawing::box(painter, rect(), 6, m_theme.palette().segmentTrack, m_theme.palette().controlBorder);
}

}  // namespace corvale
