#pragma once

#include <thread>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "CorvaleKit/base/Require.h"

namespace corvale {

class AppModel::Operation {
public:
    explicit Operation(AppModel& model) : m_model(model) {
        CORVALE_REQUIRE(std::this_thread::get_id() == model.m_mainThread, "AppModel is used on the main thread only");
        ++m_model.m_operations;
    }
    ~Operation() {
        if (--m_model.m_operations == 0) {
            m_model.announce();
        }
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

private:
    AppModel& m_model;
};

template <typename Value>
void AppModel::set(Value& field, Value value, Signal changed) {
    if (field == value) {
        return;
    }
    field = std::move(value);
    noteChange(changed);
}

}  // namespace corvale
