#include "pictures/TypedPoints.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"

namespace ocuva {

namespace {

constexpr std::array<const char*, pointFieldCount> fieldNames{"picture X", "picture Y", "stage X", "stage Y",
                                                              "stage Z"};

// Reads the boxes of one point.
class Reader {
    template <typename Convert> auto read(PointField field, Convert convert) const {
        try {
            return convert(m_texts.at(static_cast<std::size_t>(field)));
        } catch (const std::runtime_error& error) {
            throw PointFieldError(m_point, field, error.what());
        }
    }

public:
    Reader(std::size_t point, const PointTexts& texts)
        : m_point(point)
        , m_texts(texts) {}

    Integer integer(PointField field) const {
        return read(field, [](const std::string& text) { return toInteger(textToDouble(text)); });
    }
    Long whole(PointField field) const {
        return read(field, [](const std::string& text) { return textToLong(text); });
    }

private:
    std::size_t m_point;
    const PointTexts& m_texts;
};

} // namespace

PointFieldError::PointFieldError(std::size_t point, PointField field, const std::string& reason)
    : std::runtime_error("Point " + std::to_string(point + 1) + ", " +
                         fieldNames.at(static_cast<std::size_t>(field)) + ": " + reason)
    , m_point(point)
    , m_field(field) {}

CalibrationPoints typedPoints(bool twoPoints, const std::array<PointTexts, 3>& texts) {
    CalibrationPoints typed;
    typed.twoPoints = twoPoints;
    for (std::size_t i = 0; i < typed.count(); ++i) {
        const Reader reader(i, texts.at(i));
        CalibrationPoint& point = typed.points.at(i);
        point.XI = reader.integer(PointField::XI);
        point.YI = reader.integer(PointField::YI);
        point.XS = reader.whole(PointField::XS);
        point.YS = reader.whole(PointField::YS);
        point.ZS = reader.whole(PointField::ZS);
    }
    return typed;
}

PointTexts pointTexts(const CalibrationPoint& point) {
    return {std::to_string(point.XI), std::to_string(point.YI), std::to_string(point.XS),
            std::to_string(point.YS), std::to_string(point.ZS)};
}

} // namespace ocuva
