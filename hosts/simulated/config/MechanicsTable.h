#pragma once
// The settings of section [Mechanics] with their values in the three grades.

#include "hosts/simulated/config/SimConfig.h"

namespace hosts::simulated {

/// Grade "ideal" has the setting's default, which spoils nothing. A key that is given overrides its grade.
struct GradedSetting {
    SimSetting setting; ///< its default is that of grade "ideal"
    double inStatic;    ///< grade "static": wrong, but always in the same way
    double inDynamic;   ///< grade "dynamic": also changes while one looks
};

namespace settings {

inline constexpr const char* mechanics = "Mechanics";
inline constexpr const char* grade = "Grade"; ///< a word: ideal, static or dynamic

inline constexpr GradedSetting playX{
    {mechanics, "PlayX", 0, 0, 1000, "play of X, stage units: the sample lags when X turns back"}, 4, 4};
inline constexpr GradedSetting playY{{mechanics, "PlayY", 0, 0, 1000, "play of Y, stage units"}, 3, 3};
inline constexpr GradedSetting playZ{{mechanics, "PlayZ", 0, 0, 1000, "play of Z, stage units"}, 2, 2};
inline constexpr GradedSetting scaleErrorX{
    {mechanics, "ScaleErrorX", 0, -0.2, 0.2, "part by which the picture shows more than the settings say"},
    0.02,
    0.02};
inline constexpr GradedSetting scaleErrorY{
    {mechanics, "ScaleErrorY", 0, -0.2, 0.2, "the same for the picture's height"}, -0.015, -0.015};
inline constexpr GradedSetting tiltFactor{
    {mechanics, "TiltFactor", 1, -100, 100, "factor on both tilts of the sample"}, 3, 3};
inline constexpr GradedSetting settlingAmplitude{
    {mechanics, "SettlingAmplitude", 0, 0, 1000, "swing of the sample after a stop, stage units"}, 0, 2};
inline constexpr GradedSetting settlingMs{
    {mechanics, "SettlingMs", 300, 1, 60000, "time after which 5 percent of the swing are left, ms"},
    300,
    300};
inline constexpr GradedSetting driftX{
    {mechanics, "DriftX", 0, -1000, 1000, "creep of the sample in X, stage units per minute"}, 0, 1.5};
inline constexpr GradedSetting driftY{
    {mechanics, "DriftY", 0, -1000, 1000, "creep in Y, stage units per minute"}, 0, -1};
inline constexpr GradedSetting driftZ{
    {mechanics, "DriftZ", 0, -1000, 1000, "creep in Z, stage units per minute"}, 0, 0.5};
inline constexpr GradedSetting stallAxis{
    {mechanics, "StallAxis", 0, 0, 3, "axis that stalls: 1 = X, 2 = Y, 3 = Z, 0 = none"}, 0, 0};
inline constexpr GradedSetting stallAfter{
    {mechanics, "StallAfter", 0, 0, 1e6, "way after which it stalls, stage units"}, 0, 0};
inline constexpr GradedSetting stallTimeoutMs{
    {mechanics, "StallTimeoutMs", 3000, 0, 600000, "time for which a stalled axis reports that it moves, ms"},
    3000,
    3000};
inline constexpr GradedSetting secondController{{mechanics, "SecondControllerAmplitude", 0, 0, 1e6,
                                                 "way by which another controller moves X, stage units"},
                                                0,
                                                20};
inline constexpr GradedSetting secondControllerMs{
    {mechanics, "SecondControllerPeriodMs", 20000, 100, 3600000, "time between its moves, ms"}, 20000, 20000};

} // namespace settings

/// All of them, in the order of the seeded file.
inline constexpr const GradedSetting* mechanicsSettings[] = {
    &settings::playX,
    &settings::playY,
    &settings::playZ,
    &settings::scaleErrorX,
    &settings::scaleErrorY,
    &settings::tiltFactor,
    &settings::settlingAmplitude,
    &settings::settlingMs,
    &settings::driftX,
    &settings::driftY,
    &settings::driftZ,
    &settings::stallAxis,
    &settings::stallAfter,
    &settings::stallTimeoutMs,
    &settings::secondController,
    &settings::secondControllerMs,
};

} // namespace hosts::simulated
