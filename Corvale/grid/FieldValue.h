#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "Corvale/grid/RowField.h"

namespace corvale {

// How one value of a field is written: its text, and what of it is marked as different. Of a very long value only the
// stretch that differs is there, with notes of how much is left out around it.
struct FieldValue {
    QString text;
    std::vector<int> origins;  // where the text is not the value: the unit of `original` that each one stands for
    QString original;          // what is copied; empty for a note such as "(empty)"
    bool isNote = false;
    // In UTF-16 units of the text.
    int markBegin = 0;  // an empty stretch where all or nothing differs
    int markEnd = 0;
    int noteBefore = 0;  // of what is left out, at the start and the end
    int noteBehind = 0;

    // What stands for an empty value, or for one that is not there.
    static QString note(const RowField& field, bool isThere);
};

// Both values of a field.
struct FieldValues {
    FieldValue before;
    FieldValue after;

    static FieldValues of(const RowField& field);
};

}  // namespace corvale
