#include "Corvale/window/FilesBar.h"

#include <QHBoxLayout>
#include <QResizeEvent>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/FileCard.h"
#include "Corvale/window/FileDrop.h"

namespace corvale {

FilesBar::FilesBar(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_before(new FileCard(Side::before, model, theme, this)),
      m_swap(new Button(Button::Face::tile, theme, this)),
      m_after(new FileCard(Side::after, model, theme, this)) {
    m_swap->setSymbol(QStringLiteral("arrow.left.arrow.right"), 18);
    m_swap->setHelp(tr("Swap Before and After"));
    m_swap->setAccessibleName(tr("Swap Before and After"));
    connect(m_swap, &Button::clicked, &model, &AppModel::swap);

    auto* const row = new QHBoxLayout(this);
    row->setSpacing(8);
    row->addWidget(m_before, 1);
    row->addWidget(m_swap);
    row->addWidget(m_after, 1);

    connect(&model, &AppModel::beforeChanged, this, &FilesBar::refresh);
    connect(&model, &AppModel::afterChanged, this, &FilesBar::refresh);
    refresh();
}

void FilesBar::refresh() {
    m_swap->setEnabled(m_model.before() || m_model.after());
    // The match bar below comes closer.
    const bool endsBars = !m_model.before() || !m_model.after();
    layout()->setContentsMargins(12, 10, 12, endsBars ? 12 : 4);
}

Side FilesBar::sideForDrop() const { return m_model.before() ? Side::after : Side::before; }

void FilesBar::showTargets(qsizetype files) {
    m_before->setTargeted(files == FileDrop::mostFiles || (files == 1 && sideForDrop() == Side::before));
    m_after->setTargeted(files == FileDrop::mostFiles || (files == 1 && sideForDrop() == Side::after));
}

void FilesBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_before->setNarrow(width() < Metrics::withoutTexts);
    m_after->setNarrow(width() < Metrics::withoutTexts);
}

}  // namespace corvale
