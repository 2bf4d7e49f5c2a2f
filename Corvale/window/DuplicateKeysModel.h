#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <cstdint>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

class AppModel;

// The duplicate keys of the result, a line each: key, side, rows. Texts are made for the lines that are asked for.
class DuplicateKeysModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : std::uint8_t { key, side, rows, columns };

    // The model outlives the table, which reads its result and keeps nothing of it.
    DuplicateKeysModel(AppModel& model, QObject* parent);

    // Reads the result anew while the list is open; while it is not, there are no lines.
    void setOpen(bool open);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // What a line says of a key in one column.
    static QString text(const DuplicateKey& duplicate, int column);

private:
    AppModel& m_model;
    bool m_open = false;
};

}  // namespace corvale
