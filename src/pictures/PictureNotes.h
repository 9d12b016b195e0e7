#pragma once
// What a TIFF's image description says, in the form that ImageJ writes and that its users' tools understand:
// a first line "ImageJ=version", then lines KEY=VALUE.

#include "base/StagePosition.h"
#include "pictures/Picture.h"
#include "video/Magnification.h"

#include <QByteArray>
#include <QSize>

namespace ocuva {

/// The scale of a picture that shows the whole field: factor * 100 / magnification stage units (micrometres)
/// in each direction. Not known when magnification or a factor is not above 0.
PictureScale fieldScale(const Magnification& magnification, QSize pixels);

/// The notes of every camera picture: stage position (stage units), magnification and, if it is known, the
/// field in micrometres.
std::vector<PictureNote> cameraNotes(const StagePosition& stage, const Magnification& magnification);

/// The image description: with a known scale it has "unit=um", which turns a resolution in centimetres into
/// micrometres per pixel (10000 / pixels per centimetre). ASCII; other characters become "?".
QByteArray imageDescription(const Picture& picture);

/// The contents of such a description besides scale and version. Empty for a description of any other
/// kind.
struct ReadNotes {
    bool inMicrometres = false;     ///< the resolution of the file is a scale
    std::vector<PictureNote> notes; ///< in their order
};
/// Lines that are no KEY=VALUE are passed over.
ReadNotes readImageDescription(const QByteArray& text);

/// The notes that remain valid for one page with 8 bits per channel. Those about a stack of pages
/// ("images", "hyperstack" ...) are left out and, if the values did not have 8 bits, those about values
/// ("min", "max" ...).
std::vector<PictureNote> notesOfOnePage(const std::vector<PictureNote>& notes, int bitsPerChannel);

/// Whether the notes speak of more than one page; some files of several pages say it only there.
bool tellOfFurtherPages(const std::vector<PictureNote>& notes);

} // namespace ocuva
