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

/// The place of a value in the pair that the host keeps as one group.
enum class ReferenceSlot { First, Second };

/// Where one reference is on the page and in the host.
struct CameraReferenceRow {
    CameraReference reference; ///< the one that the row is about
    const char* slider;        ///< name of the control
    const char* textBox;       ///< name of the control
    Long group;                ///< 1 or 2, as the host counts its pairs
    ReferenceSlot slot;        ///< its place in the group
    const char* defaultKey;    ///< of the stored default, to be followed by the camera type
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

/// The ends of the references' scale, and of their sliders.
inline constexpr Long lowestReference = 0;
inline constexpr Long highestReference = 100;

/// The controls of the references: sldContrast and txtContrast, and so on. The setters may report the change
/// as if the operator had made it, as some sliders do, or keep quiet.
class CameraReferencesView {
public:
    virtual ~CameraReferencesView() = default;
    /// The text box, as it stands.
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

/// What the host has for that reference now; nothing when it gives none.
std::optional<Double> readCameraReference(TnVideo& video, CameraReference reference);

/// Carries what the operator sets to the host, and shows what the host made of it.
class CameraReferences {
public:
    /// Both outlive it.
    CameraReferences(TnVideo& video, CameraReferencesView& view)
        : m_video(video)
        , m_view(view) {}

    /// The slider was moved: its position goes into the text box, and on from there as if that had been left.
    void sliderMoved(CameraReference reference);

    /// The text box lost the focus: its number, as it stands, is set in the host, which brings it into 0 to
    /// 100, and the other reference of the group stays. A text that is no number sets nothing. Either way the
    /// host's value is shown afterwards.
    void textLeft(CameraReference reference);

    /// Text and slider show the host's value: the text with one decimal, the slider that text's nearest whole
    /// number, set only where it differs. A value that the host does not give leaves the text empty and the
    /// slider where it is. What the controls report meanwhile is not taken for the operator's doing, so the
    /// decimal of a typed value survives the slider.
    void show(CameraReference reference);
    /// The same for all four, in the order of the page.
    void showAll();

private:
    TnVideo& m_video;
    CameraReferencesView& m_view;
    bool m_showing = false;
};

} // namespace ocuva
