#include "app/toolbar/ImageList.h"

#include "app/toolbar/IconArt.h"
#include "app/toolbar/VectorIcon.h"

namespace ocuva {

QIcon ImageList::image(const QString& key, bool on) const {
    return iconKeys().contains(key) ? vectorIcon(key, on, m_look) : QIcon();
}

} // namespace ocuva
