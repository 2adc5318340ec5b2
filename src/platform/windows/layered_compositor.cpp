#include "platform/windows/layered_compositor.h"

#include <QByteArray>
#include <QWindow>

#include <cstring>
#include <vector>

#include <windows.h>

namespace paneda {

void LayeredCompositor::SetShape(QWindow& window, const QRegion& pixels) {
    std::vector<RECT> rects;
    for (const QRect& rect : pixels)
        rects.push_back({rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1});
    const QRect all = pixels.boundingRect();
    const RGNDATAHEADER header{sizeof(RGNDATAHEADER),
                               RDH_RECTANGLES,
                               DWORD(rects.size()),
                               DWORD(rects.size() * sizeof(RECT)),
                               {all.left(), all.top(), all.right() + 1, all.bottom() + 1}};
    QByteArray data(reinterpret_cast<const char*>(&header), sizeof header);
    data.append(reinterpret_cast<const char*>(rects.data()), qsizetype(rects.size() * sizeof(RECT)));
    const HRGN region =
        ExtCreateRegion(nullptr, DWORD(data.size()), reinterpret_cast<const RGNDATA*>(data.constData()));
    // The window takes the region over, unless it fails.
    if (region && !SetWindowRgn(reinterpret_cast<HWND>(window.winId()), region, TRUE))
        DeleteObject(region);
}

} // namespace paneda
