#include "app/toolbar/IconInk.h"

namespace ocuva {

namespace {

struct Accents {
    QRgb blue;
    QRgb hotBlue;
    QRgb red;
    QRgb hotRed;
};

// The same two hues on either background, dark enough or bright enough to stand out from it.
constexpr Accents onLight{0xff1668b4, 0xff1f86e0, 0xffd3281c, 0xfff0392b};
constexpr Accents onDark{0xff4fb0f5, 0xff8ccbff, 0xffff5245, 0xffff8076};

QColor mixed(const QColor& a, const QColor& b, float partOfB) {
    const float partOfA = 1.0F - partOfB;
    return QColor::fromRgbF(a.redF() * partOfA + b.redF() * partOfB,
                            a.greenF() * partOfA + b.greenF() * partOfB,
                            a.blueF() * partOfA + b.blueF() * partOfB);
}

QColor translucent(QColor colour, float opacity) {
    colour.setAlphaF(opacity);
    return colour;
}

IconInk greyInk(const QColor& grey) {
    return {.line = grey,
            .body = translucent(grey, 0.10F),
            .accent = grey,
            .accentBody = translucent(grey, 0.25F),
            .unlit = translucent(grey, 0.6F),
            .lit = grey,
            .glow = translucent(grey, 0.2F)};
}

} // namespace

IconInk inkFor(const QPalette& palette, IconLook look) {
    const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
    const QColor ground = palette.color(QPalette::Active, QPalette::Button);
    if (look == IconLook::Disabled) {
        return greyInk(mixed(text, ground, 0.58F));
    }
    if (look == IconLook::Selected) {
        return greyInk(palette.color(QPalette::Active, QPalette::HighlightedText));
    }
    const Accents& accents = ground.lightnessF() > text.lightnessF() ? onLight : onDark;
    const bool hot = look == IconLook::Hot;
    const QColor blue = QColor::fromRgb(hot ? accents.hotBlue : accents.blue);
    const QColor red = QColor::fromRgb(hot ? accents.hotRed : accents.red);
    const QColor line = hot ? mixed(text, blue, 0.45F) : mixed(text, ground, 0.18F);
    return {.line = line,
            .body = translucent(hot ? blue : text, hot ? 0.18F : 0.10F),
            .accent = blue,
            .accentBody = translucent(blue, hot ? 0.40F : 0.30F),
            .unlit = translucent(line, 0.55F),
            .lit = red,
            .glow = translucent(red, hot ? 0.35F : 0.25F)};
}

} // namespace ocuva
