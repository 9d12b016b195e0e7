/* Tells where windows are that only Windows knows: for each line with a window handle in decimal, one line
 * with left, top, width and height of its inside on the screen, or "-" for a handle that is none. 0 stands
 * for the window that has the keys. */

#include <stdio.h>
#include <windows.h>

int main(void) {
    long long handle = 0;
    SetProcessDPIAware();
    while (scanf("%lld", &handle) == 1) {
        HWND window = handle != 0 ? (HWND)(INT_PTR)handle : GetForegroundWindow();
        RECT inside;
        POINT corner = {0, 0};
        if (GetClientRect(window, &inside) && ClientToScreen(window, &corner)) {
            printf("%ld %ld %ld %ld\n", corner.x, corner.y, inside.right, inside.bottom);
        } else {
            puts("-");
        }
        fflush(stdout);
    }
    return 0;
}
