// SPDX-License-Identifier: GPL-3.0-or-later
// A driver of the scanner service, "stubborn", for what the service's own test driver can't do. Its scanners
// send white pages of 8 x 10 pixels, and have their area in pixels of the resolution. What is special is in
// the name of the device:
//   "pixels"   nothing else
//   "short"    six lines of the ten that it promised
//   "blocked"  the first read returns only when it is cancelled
//   "deaf"     reads never return
//   "fails N"  the first read gives the status with that number, later ones are good
// A read that blocks writes the number of its process to the file "reading" in SANE_CONFIG_DIR.

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sane/sane.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace {

enum Number { Count, Resolution, Left, Top, Right, Bottom, All };

constexpr SANE_Word millimeters = 100;
constexpr int width = 8, lines = 10;

struct Scanner {
    std::string kind;
    SANE_Word resolutions[3] = {2, 75, 300}; ///< the first is the length
    SANE_Range edge = {0, 0, 1};
    SANE_Word values[All] = {All, 75};
    int line = 0;
    bool isBlocking = false;
    SANE_Status fault = SANE_STATUS_GOOD;  ///< of the next read
    std::atomic<bool> isCancelled = false; ///< by a signal handler

    void setResolution(SANE_Word dpi) {
        values[Resolution] = dpi;
        edge.max = millimeters * dpi * 10 / 254;
        for (const Number side : {Left, Top, Right, Bottom})
            values[side] = std::min(values[side], edge.max);
    }
    void block() {
        std::ofstream(std::string(std::getenv("SANE_CONFIG_DIR")) + "/reading") << ::getpid() << '\n';
        while (!isCancelled || kind == "deaf")
            ::usleep(1000);
        isBlocking = false;
    }
};

Scanner scanner;

SANE_Option_Descriptor optionFor(Number number) {
    static const char* const names[] = {"", "resolution", "tl-x", "tl-y", "br-x", "br-y"};
    SANE_Option_Descriptor option = {};
    option.name = option.title = option.desc = names[number];
    option.type = SANE_TYPE_INT;
    option.unit = number == Resolution ? SANE_UNIT_DPI : SANE_UNIT_PIXEL;
    option.size = sizeof(SANE_Word);
    option.cap = SANE_CAP_SOFT_DETECT | (number == Count ? 0 : SANE_CAP_SOFT_SELECT);
    if (number == Resolution) {
        option.constraint_type = SANE_CONSTRAINT_WORD_LIST;
        option.constraint.word_list = scanner.resolutions;
    } else if (number != Count) {
        option.constraint_type = SANE_CONSTRAINT_RANGE;
        option.constraint.range = &scanner.edge;
    }
    return option;
}

} // namespace

// The service finds these functions by their names.
extern "C" {

SANE_Status sane_stubborn_init(SANE_Int* version, SANE_Auth_Callback) {
    *version = SANE_VERSION_CODE(SANE_CURRENT_MAJOR, 0, 0);
    return SANE_STATUS_GOOD;
}

void sane_stubborn_exit() {}

SANE_Status sane_stubborn_open(SANE_String_Const name, SANE_Handle* handle) {
    scanner.kind = name;
    scanner.isBlocking = scanner.kind == "blocked" || scanner.kind == "deaf";
    scanner.fault = SANE_STATUS_GOOD;
    if (scanner.kind.rfind("fails ", 0) == 0)
        scanner.fault = SANE_Status(std::stoi(scanner.kind.substr(6)));
    scanner.setResolution(75);
    scanner.values[Right] = scanner.values[Bottom] = scanner.edge.max;
    *handle = &scanner;
    return SANE_STATUS_GOOD;
}

void sane_stubborn_close(SANE_Handle) {}

const SANE_Option_Descriptor* sane_stubborn_get_option_descriptor(SANE_Handle, SANE_Int number) {
    static SANE_Option_Descriptor option;
    if (number < 0 || number >= All)
        return nullptr;
    option = optionFor(Number(number));
    return &option;
}

SANE_Status sane_stubborn_control_option(SANE_Handle, SANE_Int number, SANE_Action action, void* value,
                                         SANE_Int* info) {
    if (number < 0 || number >= All)
        return SANE_STATUS_INVAL;
    if (action == SANE_ACTION_GET_VALUE)
        std::memcpy(value, &scanner.values[number], sizeof(SANE_Word));
    else if (number == Resolution)
        scanner.setResolution(*static_cast<SANE_Word*>(value));
    else
        scanner.values[number] = std::clamp(*static_cast<SANE_Word*>(value), 0, scanner.edge.max);
    if (info)
        *info = number == Resolution ? SANE_INFO_RELOAD_OPTIONS : 0;
    return SANE_STATUS_GOOD;
}

/// A signal that an earlier cancel has left over would end the process in the middle of this page.
SANE_Status sane_stubborn_start(SANE_Handle) {
    scanner.line = 0;
    scanner.isCancelled = false;
    return ::alarm(0) == 0 ? SANE_STATUS_GOOD : SANE_STATUS_DEVICE_BUSY;
}

SANE_Status sane_stubborn_get_parameters(SANE_Handle, SANE_Parameters* parameters) {
    *parameters = {SANE_FRAME_GRAY, SANE_TRUE, width, width, lines, 8};
    return SANE_STATUS_GOOD;
}

SANE_Status sane_stubborn_read(SANE_Handle, SANE_Byte* bytes, SANE_Int, SANE_Int* count) {
    *count = 0;
    if (scanner.isBlocking)
        scanner.block();
    if (scanner.isCancelled)
        return SANE_STATUS_CANCELLED;
    if (scanner.fault != SANE_STATUS_GOOD)
        return std::exchange(scanner.fault, SANE_STATUS_GOOD);
    if (scanner.line++ == (scanner.kind == "short" ? 6 : lines))
        return SANE_STATUS_EOF;
    std::fill_n(bytes, width, SANE_Byte(255));
    *count = width;
    return SANE_STATUS_GOOD;
}

void sane_stubborn_cancel(SANE_Handle) {
    scanner.isCancelled = true;
}

} // extern "C"
