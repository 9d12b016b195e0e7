#include "app/toolbar/ImageList.h"

#include "app/toolbar/ToolbarButtons.h"
#include "app/toolbar/VectorIcon.h"

namespace ocuva {

QIcon ImageList::image(const QString& key, bool on) const {
    return findButton(key) != nullptr ? vectorIcon(key, on, m_look) : QIcon();
}

} // namespace ocuva
