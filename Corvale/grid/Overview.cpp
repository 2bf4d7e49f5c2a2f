#include "Corvale/grid/Overview.h"

#include <algorithm>
#include <optional>

namespace corvale::Overview {

namespace {

constexpr std::int64_t mostStretches = 4096;
constexpr int binHeight = 2;
constexpr double leastOpacity = 0.45;
constexpr double leastMark = 2;
constexpr double largestMark = 8;

std::optional<Lane> laneOf(DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return Lane::added;
        case DiffRow::Status::removed:
            return Lane::removed;
        case DiffRow::Status::changed:
            return Lane::changed;
        case DiffRow::Status::same:
            break;
    }
    return std::nullopt;
}

// The last row of stretch `index` of `stretches` is before this one.
std::int64_t stretchEnd(std::int64_t index, std::int64_t stretches, std::int64_t rows) {
    return (index + 1) * rows / stretches;
}

std::vector<Mark> rowMarks(const Counts& counts, int height) {
    std::vector<Mark> found;
    const double share = static_cast<double>(height) / static_cast<double>(counts.rows);
    const double markHeight = std::clamp(share, leastMark, largestMark);
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        for (std::size_t row = 0; row < counts.stretches.size(); ++row) {
            if (counts.stretches[row][lane] > 0) {
                const double top = share * static_cast<double>(row) + (share - markHeight) / 2;
                found.push_back({static_cast<Lane>(lane), top, markHeight, 1});
            }
        }
    }
    return found;
}

struct Bin {
    std::int64_t rows = 0;
    std::array<std::int64_t, lanes> ofLane{};
};

std::vector<Bin> binned(const Counts& counts, int height) {
    const auto stretches = static_cast<std::int64_t>(counts.stretches.size());
    const std::int64_t bins = std::max(1, height / binHeight);
    std::vector<Bin> filled(static_cast<std::size_t>(bins));
    std::int64_t row = 0;
    for (std::int64_t i = 0; i < stretches; ++i) {
        Bin& bin = filled[static_cast<std::size_t>(i * bins / stretches)];
        const std::int64_t end = stretchEnd(i, stretches, counts.rows);
        bin.rows += end - row;
        row = end;
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            bin.ofLane[lane] += counts.stretches[static_cast<std::size_t>(i)][lane];
        }
    }
    return filled;
}

std::vector<Mark> binMarks(const Counts& counts, int height) {
    const std::vector<Bin> bins = binned(counts, height);
    std::vector<Mark> found;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        for (std::size_t i = 0; i < bins.size(); ++i) {
            if (bins[i].ofLane[lane] > 0) {
                const double share = static_cast<double>(bins[i].ofLane[lane]) / static_cast<double>(bins[i].rows);
                const double opacity = leastOpacity + (1 - leastOpacity) * share;
                found.push_back(
                    {static_cast<Lane>(lane), static_cast<double>(i) * binHeight, double{binHeight}, opacity});
            }
        }
    }
    return found;
}

}  // namespace

Counts count(const DiffRows& rows) {
    Counts counts;
    counts.rows = static_cast<std::int64_t>(rows.size());
    const std::int64_t stretches = std::min(counts.rows, mostStretches);
    counts.stretches.resize(static_cast<std::size_t>(stretches));
    std::int64_t row = 0;
    for (std::int64_t i = 0; i < stretches; ++i) {
        for (const std::int64_t end = stretchEnd(i, stretches, counts.rows); row < end; ++row) {
            if (const auto lane = laneOf(rows.status(static_cast<std::size_t>(row)))) {
                ++counts.stretches[static_cast<std::size_t>(i)][static_cast<std::size_t>(*lane)];
            }
        }
    }
    return counts;
}

std::vector<Mark> marks(const Counts& counts, int height) {
    if (counts.rows == 0 || height <= 0) {
        return {};
    }
    const bool hasRoomForEach = counts.rows * binHeight <= height && counts.rows <= mostStretches;
    return hasRoomForEach ? rowMarks(counts, height) : binMarks(counts, height);
}

double topOfRow(std::int64_t row, std::int64_t rows, int height) {
    if (rows <= 0) {
        return 0;
    }
    return static_cast<double>(height) * static_cast<double>(std::clamp<std::int64_t>(row, 0, rows)) /
           static_cast<double>(rows);
}

std::int64_t rowAt(double y, std::int64_t rows, int height) {
    if (rows <= 0 || height <= 0) {
        return 0;
    }
    const double row = y / height * static_cast<double>(rows);
    return static_cast<std::int64_t>(std::clamp(row, 0.0, static_cast<double>(rows - 1)));
}

}  // namespace corvale::Overview
