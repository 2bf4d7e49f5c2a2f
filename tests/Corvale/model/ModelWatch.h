#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "Corvale/model/AppModel.h"

namespace corvale::TestSupport {

// The first rule of the model's state that does not hold, whatever was done to it; empty when all do.
std::string brokenRule(const AppModel& model);

// Receives every signal of a model, and holds it to its promises: a signal comes only when its field changed, the state
// is whole then, and no change goes unannounced.
class ModelWatch : public QObject {
public:
    // The model outlives the watch.
    explicit ModelWatch(AppModel& model);

    // The signals since the last call, by name, in alphabetical order: "filter visible".
    std::string take();
    // What was promised and not kept so far; empty when nothing.
    std::string brokenPromises();

private:
    using Signal = void (AppModel::*)();
    struct Field {
        std::string name;
        std::function<std::string()> value;
        std::string announced;
    };

    void watch(const std::string& name, Signal signal, std::function<std::string()> value);
    void receive(Field& field);

    AppModel& m_model;
    std::vector<Field> m_fields;
    std::vector<std::string> m_received;
    std::string m_broken;
};

}  // namespace corvale::TestSupport
