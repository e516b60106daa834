// SPDX-License-Identifier: MIT
#include "players/platform/PlayerError.h"
#include "players/platform/WideText.h"
#include "players/platform/Window.h"

#include <algorithm>
#include <deque>
#include <windowsx.h>

#include <timeapi.h>

namespace tarsel::players {

namespace {

constexpr wchar_t className[] = L"TarselPlayer";

Key keyOf(WPARAM code) {
    switch (code) {
    case VK_ESCAPE:
        return Key::Escape;
    case VK_SPACE:
        return Key::Space;
    case VK_LEFT:
    case VK_PRIOR:
        return Key::Back;
    case VK_RIGHT:
    case VK_NEXT:
        return Key::Forward;
    default:
        return Key::Other;
    }
}

/// Pixels that GDI can read.
class DeviceBitmap {
public:
    ~DeviceBitmap() {
        DeleteDC(m_device);
        DeleteObject(m_bitmap);
    }

    void resize(int width, int height) {
        if (m_bitmap && width == m_canvas.width && height == m_canvas.height)
            return;
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // rows from the top
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        if (!bitmap)
            throw PlayerError("There is not enough memory for the screen.");
        SelectObject(m_device, bitmap);
        DeleteObject(m_bitmap);
        m_bitmap = bitmap;
        m_canvas = {static_cast<std::uint32_t*>(pixels), width, height, width};
    }

    Canvas canvas() const { return m_canvas; }
    void show(HDC target) const {
        BitBlt(target, 0, 0, m_canvas.width, m_canvas.height, m_device, 0, 0, SRCCOPY);
    }

private:
    HDC m_device = CreateCompatibleDC(nullptr);
    HBITMAP m_bitmap = nullptr;
    Canvas m_canvas;
};

class Win32Window : public Window {
public:
    explicit Win32Window(const WindowWish& wish) : m_isPointerShown(!wish.hidesPointer) {
        SetProcessDPIAware(); // else the system would scale the pictures
        registerClass();
        const auto host = reinterpret_cast<HWND>(std::uintptr_t(wish.host.value_or(0)));
        RECT size{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        if (host && !GetClientRect(host, &size))
            throw PlayerError("There is no window " + std::to_string(*wish.host) + " to draw into.");
        m_window = CreateWindowExW(host ? 0 : WS_EX_TOPMOST, className, wide(wish.title).c_str(),
                                   host ? WS_CHILD : WS_POPUP, 0, 0, size.right, size.bottom, host, nullptr,
                                   GetModuleHandleW(nullptr), this);
        if (!m_window)
            throw PlayerError("The player can't open its window.");
    }
    ~Win32Window() override {
        if (m_window)
            DestroyWindow(m_window);
        if (m_isFineTimer)
            timeEndPeriod(1);
    }

    Box screen() const override {
        return {0, 0, std::max(GetSystemMetrics(SM_CXSCREEN), m_width),
                std::max(GetSystemMetrics(SM_CYSCREEN), m_height)};
    }

    Canvas canvas() override {
        m_bitmap.resize(m_width, m_height);
        return m_bitmap.canvas();
    }

    void present() override {
        if (!IsWindowVisible(m_window)) {
            ShowWindow(m_window, SW_SHOW);
            SetForegroundWindow(m_window);
        }
        const HDC device = GetDC(m_window);
        m_bitmap.show(device);
        ReleaseDC(m_window, device);
        GdiFlush();
    }

    std::optional<Event> wait(double seconds) override {
        takeMessages();
        if (m_events.empty() && seconds > 0) {
            sharpenTimer(seconds);
            MsgWaitForMultipleObjects(0, nullptr, FALSE, DWORD(seconds * 1000), QS_ALLINPUT);
            takeMessages();
        }
        if (m_events.empty())
            return std::nullopt;
        const Event event = m_events.front();
        m_events.pop_front();
        return event;
    }

    bool isSeen() const override {
        const HDC device = GetDC(m_window);
        RECT visible;
        const bool isCovered = GetClipBox(device, &visible) == NULLREGION;
        ReleaseDC(m_window, device);
        return !isCovered && !IsIconic(m_window);
    }

    void showPointer(bool isShown) override {
        m_isPointerShown = isShown;
        setPointer();
    }

private:
    static void registerClass() {
        WNDCLASSW description{};
        description.lpfnWndProc = procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = className;
        RegisterClassW(&description);
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM word, LPARAM parameter) {
        if (message == WM_NCCREATE)
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              LONG_PTR(reinterpret_cast<CREATESTRUCTW*>(parameter)->lpCreateParams));
        auto* const self = reinterpret_cast<Win32Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self && self->take(message, word, parameter))
            return message == WM_SETCURSOR || message == WM_ERASEBKGND;
        return DefWindowProcW(window, message, word, parameter);
    }

    /// Whether that is all there is to do about it.
    bool take(UINT message, WPARAM word, LPARAM parameter) {
        const auto push = [&](Event::Kind kind, Key key = Key::Other) {
            m_events.push_back({kind, key, GET_X_LPARAM(parameter), GET_Y_LPARAM(parameter)});
            return true;
        };
        switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return push(Event::Kind::Key, keyOf(word));
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
            return push(Event::Kind::Press);
        case WM_MOUSEMOVE:
            return push(Event::Kind::Move);
        case WM_PAINT:
            ValidateRect(m_window, nullptr);
            return push(Event::Kind::Exposed);
        case WM_SIZE:
            m_width = std::max<int>(LOWORD(parameter), 1);
            m_height = std::max<int>(HIWORD(parameter), 1);
            return push(Event::Kind::Exposed);
        case WM_DESTROY:
            m_window = nullptr;
            return push(Event::Kind::Closed);
        case WM_CLOSE:
            return push(Event::Kind::Closed);
        case WM_SETCURSOR:
            setPointer();
            return true;
        case WM_SYSCOMMAND: // no other saver over this show
            return (word & 0xFFF0) == SC_SCREENSAVE;
        case WM_ERASEBKGND:
            return true;
        default:
            return false;
        }
    }

    void takeMessages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }

    /// The usual period of the timer, 1/64 s, is too long between frames.
    void sharpenTimer(double seconds) {
        if (m_isFineTimer || seconds > 0.05)
            return;
        timeBeginPeriod(1);
        m_isFineTimer = true;
    }

    void setPointer() const {
        SetCursor(m_isPointerShown ? LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)) : nullptr);
    }

    HWND m_window = nullptr;
    int m_width = 1;
    int m_height = 1;
    DeviceBitmap m_bitmap;
    std::deque<Event> m_events;
    bool m_isPointerShown;
    bool m_isFineTimer = false;
};

} // namespace

std::unique_ptr<Window> Window::open(const WindowWish& wish) {
    return std::make_unique<Win32Window>(wish);
}

} // namespace tarsel::players
