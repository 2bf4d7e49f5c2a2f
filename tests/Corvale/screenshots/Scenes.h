#pragma once

#include <QSize>
#include <functional>
#include <string>
#include <vector>

namespace corvale::Screenshots {

class Stage;

// One picture.
struct Scene {
    std::string name;
    QSize size;
    std::function<void(Stage&)> setUp;
};

std::vector<Scene> scenes();

}  // namespace corvale::Screenshots
