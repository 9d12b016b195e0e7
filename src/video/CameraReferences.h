#pragma once
// The four signal references of the camera: contrast, brightness, hue and saturation, each shown by a slider
// and a text box.

#include "base/Types.h"
#include "hostlink/Host.h"

#include <array>
#include <optional>
#include <string>

namespace ocuva {

enum class CameraReference { Contrast, Brightness, Hue, Saturation };

/// The position of a value in the pair that the host keeps as one group.
enum class ReferenceSlot { First, Second };

/// The place of one reference on the page and in the host.
struct CameraReferenceRow {
    CameraReference reference; ///< the reference of this row
    const char* slider;        ///< name of the control
    const char* textBox;       ///< name of the control
    Long group;                ///< 1 or 2, the host's number of the pair
    ReferenceSlot slot;        ///< its position in the group
    const char* defaultKey;    ///< key of the stored default, without the camera type at its end
};

/// One row per CameraReference, in the order of the enumeration and of the page.
inline constexpr std::array<CameraReferenceRow, 4> cameraReferences{{
    {CameraReference::Contrast, "sldContrast", "txtContrast", 1, ReferenceSlot::First, "DefaultContrast100_"},
    {CameraReference::Brightness, "sldBrightness", "txtBrightness", 1, ReferenceSlot::Second,
     "DefaultBrightness100_"},
    {CameraReference::Hue, "sldHue", "txtHue", 2, ReferenceSlot::First, "DefaultHue100_"},
    {CameraReference::Saturation, "sldSaturation", "txtSaturation", 2, ReferenceSlot::Second,
     "DefaultSaturation100_"},
}};
const CameraReferenceRow& cameraReferenceRow(CameraReference reference);

/// The limits of the references' scale and of their sliders.
inline constexpr Long lowestReference = 0;
inline constexpr Long highestReference = 100;

/// The controls of the references: sldContrast and txtContrast, and so on. The setters may or may not
/// report the change as if the operator had made it.
class CameraReferencesView {
public:
    virtual ~CameraReferencesView() = default;
    /// The text in the text box.
    ///@{
    virtual std::string text(CameraReference reference) const = 0;
    virtual void setText(CameraReference reference, const std::string& text) = 0;
    ///@}
    /// The position of the slider, lowestReference to highestReference.
    ///@{
    virtual Long slider(CameraReference reference) const = 0;
    virtual void setSlider(CameraReference reference, Long position) = 0;
    ///@}
};

/// The host's value of the reference; nothing if it gives none.
std::optional<Double> readCameraReference(TnVideo& video, CameraReference reference);

/// Sends the operator's changes to the host and shows the host's values.
class CameraReferences {
public:
    /// Both outlive it.
    CameraReferences(TnVideo& video, CameraReferencesView& view)
        : m_video(video)
        , m_view(view) {}

    /// The slider was moved: puts its position into the text box and continues as in textLeft.
    void sliderMoved(CameraReference reference);

    /// The text box lost the focus: sends its number to the host, which limits it to 0 to 100; the other
    /// reference of the group does not change. A text without a number sets nothing. In both cases the
    /// host's value is shown afterwards.
    void textLeft(CameraReference reference);

    /// Shows the host's value: the text with one decimal, the slider with the nearest whole number of that
    /// text, set only if it differs. If the host gives no value, the text is empty and the slider stays.
    /// Changes that the controls report meanwhile do not count as the operator's, so the decimal of a
    /// typed value is kept.
    void show(CameraReference reference);
    /// Shows all four references, in the order of the page.
    void showAll();

private:
    TnVideo& m_video;
    CameraReferencesView& m_view;
    bool m_showing = false;
};

} // namespace ocuva
