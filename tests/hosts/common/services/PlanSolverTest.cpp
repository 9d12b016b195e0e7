#include "hosts/common/services/PlanSolver.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using hosts::solvePlan;

namespace {

using Points = std::array<std::array<double, 2>, 3>;

struct Answer {
    bool solved = false;
    std::array<double, 3> plane{7, 7, 7};
};

Answer planeThrough(const Points& points, const std::array<double, 3>& heights) {
    std::array<double, 9> matrix{};
    for (std::size_t i = 0; i < 3; ++i)
        matrix[3 * i] = points[i][0], matrix[3 * i + 1] = points[i][1], matrix[3 * i + 2] = 1.0;
    Answer answer;
    answer.solved = solvePlan(3, matrix.data(), heights.data(), answer.plane.data());
    return answer;
}

constexpr std::array<double, 3> untouched{7, 7, 7};

} // namespace

TEST(PlanSolver, ThreePointsGiveTheirPlane) {
    const auto z = [](double x, double y) { return 0.002 * x - 0.0015 * y + 31; };
    for (const Points& p :
         {Points{{{-25000, -25000}, {25000, -25000}, {0, 25000}}}, Points{{{0, 0}, {1, 0}, {0, 1}}},
          Points{{{24999, 25000}, {25000, 25000}, {25000, 24999}}}}) {
        const Answer answer =
            planeThrough(p, {z(p[0][0], p[0][1]), z(p[1][0], p[1][1]), z(p[2][0], p[2][1])});
        ASSERT_TRUE(answer.solved);
        EXPECT_NEAR(answer.plane[0], 0.002, 1e-9);
        EXPECT_NEAR(answer.plane[1], -0.0015, 1e-9);
        EXPECT_NEAR(answer.plane[2], 31, 1e-4);
    }
}

TEST(PlanSolver, PointsOnOneLineLeaveThePlaneOpen) {
    for (const Points& p :
         {Points{{{0, 0}, {100, 100}, {200, 200}}}, Points{{{-25000, -24997}, {1, 4}, {25000, 25003}}},
          Points{{{5, 5}, {5, 5}, {9, 1}}}, Points{{{24999, 3}, {24998, 3}, {-7, 3}}},
          Points{{{0, 0}, {0, 5}, {0, 9}}}}) {
        const Answer answer = planeThrough(p, {1, 2, 3});
        EXPECT_FALSE(answer.solved);
        EXPECT_EQ(answer.plane, untouched);
    }
}

TEST(PlanSolver, TheThinnestTriangleOfWholeUnitsInsideTheLimitsIsSolved) {
    const Points thinnest{{{-25000, -25000}, {25000, 24999}, {-24999, -24999}}};
    EXPECT_TRUE(planeThrough(thinnest, {0, 0, 0}).solved);
    EXPECT_TRUE(planeThrough({{{-25000, 25000}, {25000, 24999}, {0, 25000}}}, {0, 0, 0}).solved);
}

TEST(PlanSolver, EveryLineOfWholeUnitsIsRecognised) {
    for (int dx = -40; dx <= 40; ++dx)
        for (int dy = -40; dy <= 40; ++dy) {
            const double x = 24000.0 - 37 * dx;
            const double y = -23000.0 + 11 * dy;
            const Points line{{{x, y}, {x + dx, y + dy}, {x - 23.0 * dx, y - 23.0 * dy}}};
            EXPECT_FALSE(planeThrough(line, {1, 2, 3}).solved) << dx << ' ' << dy;
        }
}

TEST(PlanSolver, AnyOtherNumberOfRowsIsLeftOpen) {
    const std::array<double, 12> matrix{1, 0, 1, 0, 1, 1, 0, 0, 1, 5, 5, 1};
    const std::array<double, 4> right{1, 2, 3, 4};
    for (const int rows : {-1, 0, 1, 2, 4}) {
        std::array<double, 3> plane = untouched;
        EXPECT_FALSE(solvePlan(rows, matrix.data(), right.data(), plane.data())) << rows;
        EXPECT_EQ(plane, untouched);
    }
}

TEST(PlanSolver, NumbersThatAreNotFiniteAreRefused) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(planeThrough({{{nan, 0}, {1, 0}, {0, 1}}}, {0, 0, 0}).solved);
    EXPECT_FALSE(planeThrough({{{infinity, 0}, {1, 0}, {0, 1}}}, {0, 0, 0}).solved);
    EXPECT_FALSE(planeThrough({{{0, 0}, {1, 0}, {0, 1}}}, {0, nan, 0}).solved);
}
