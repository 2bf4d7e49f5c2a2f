#pragma once

#include "Corvale/model/AppModel.h"

// Changes of single fields of what the model takes as a whole.
namespace corvale::Edit {

// `change` is called once, with the settings as they are, to change them.
template <typename Change>
void settings(AppModel& model, const Change& change) {
    AppSettings edited = model.settings();
    change(edited);
    model.setSettings(edited);
}

// The same with the filter.
template <typename Change>
void filter(AppModel& model, const Change& change) {
    DiffFilter edited = model.filter();
    change(edited);
    model.setFilter(edited);
}

}  // namespace corvale::Edit
