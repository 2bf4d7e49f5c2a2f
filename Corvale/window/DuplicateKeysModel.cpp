#include "Corvale/window/DuplicateKeysModel.h"

#include "Corvale/model/AppModel.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

// A key on a million rows would make a text of megabytes, which nobody reads.
constexpr std::size_t mostNumbers = 200;

QString numbers(const std::vector<std::int64_t>& rows) {
    QString text;
    for (std::size_t i = 0; i < rows.size() && i < mostNumbers; ++i) {
        text += (i == 0 ? QString() : QStringLiteral(", ")) + QString::number(rows[i]);
    }
    return rows.size() > mostNumbers ? text + QStringLiteral(", …") : text;
}

}  // namespace

DuplicateKeysModel::DuplicateKeysModel(AppModel& model, QObject* parent)
    : QAbstractTableModel(parent), m_model(model) {}

void DuplicateKeysModel::setOpen(bool open) {
    beginResetModel();
    m_open = open;
    endResetModel();
}

int DuplicateKeysModel::rowCount(const QModelIndex& parent) const {
    const auto& result = m_model.result();
    return parent.isValid() || !m_open || !result ? 0 : static_cast<int>(result->duplicates.size());
}

int DuplicateKeysModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns; }

QVariant DuplicateKeysModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    return text(m_model.result()->duplicates[static_cast<std::size_t>(index.row())], index.column());
}

QString DuplicateKeysModel::text(const DuplicateKey& duplicate, int column) {
    switch (column) {
        case key:
            return duplicate.key.empty() ? tr("(blank)") : Wording::oneLine(duplicate.key);
        case side:
            return Wording::side(duplicate.side == DuplicateKey::Side::before ? Side::before : Side::after);
        default:
            return tr("rows %1").arg(numbers(duplicate.rowNumbers));
    }
}

}  // namespace corvale
