#include "video/CameraReferences.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"
#include "video/OwnChange.h"
#include "video/ReferenceText.h"

#include <algorithm>
#include <cmath>

namespace ocuva {

namespace {

constexpr bool inOrder() {
    for (std::size_t i = 0; i < cameraReferences.size(); ++i) {
        if (static_cast<std::size_t>(cameraReferences[i].reference) != i) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder(), "cameraReferenceRow finds a row by its number");

void setCameraReference(TnVideo& video, CameraReference reference, Double value) {
    constexpr Double unchanged = -1.0;
    const CameraReferenceRow& row = cameraReferenceRow(reference);
    if (row.slot == ReferenceSlot::First) {
        video.TarnVideoCameraSetReferences(row.group, value, unchanged);
    } else {
        video.TarnVideoCameraSetReferences(row.group, unchanged, value);
    }
}

} // namespace

const CameraReferenceRow& cameraReferenceRow(CameraReference reference) {
    return cameraReferences[static_cast<std::size_t>(reference)];
}

std::optional<Double> readCameraReference(TnVideo& video, CameraReference reference) {
    const CameraReferenceRow& row = cameraReferenceRow(reference);
    Double first = 0.0;
    Double second = 0.0;
    const bool given = video.TarnVideoCameraGetReferences(row.group, &first, &second) != 0;
    const Double value = row.slot == ReferenceSlot::First ? first : second;
    return given && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

void CameraReferences::sliderMoved(CameraReference reference) {
    if (m_showing) {
        return;
    }
    {
        const OwnChange showing(m_showing);
        m_view.setText(reference, referenceText(m_view.slider(reference)));
    }
    textLeft(reference);
}

void CameraReferences::textLeft(CameraReference reference) {
    if (m_showing) {
        return;
    }
    if (const std::optional<Double> typed = leadingNumber(m_view.text(reference))) {
        setCameraReference(m_video, reference, *typed);
    }
    show(reference);
}

void CameraReferences::show(CameraReference reference) {
    const OwnChange showing(m_showing);
    const std::optional<Double> value = readCameraReference(m_video, reference);
    const std::string text = value ? referenceText(*value) : std::string();
    m_view.setText(reference, text);
    // The number in the text, not the value: 33.46 is shown as 33.5, and the slider follows the text.
    if (const std::optional<Double> shown = leadingNumber(text)) {
        const Long position = toLong(
            std::clamp<Double>(*shown, lowestReference, highestReference)); // limited to the slider's scale
        if (m_view.slider(reference) != position) {
            m_view.setSlider(reference, position);
        }
    }
}

void CameraReferences::showAll() {
    for (const CameraReferenceRow& row : cameraReferences) {
        show(row.reference);
    }
}

} // namespace ocuva
