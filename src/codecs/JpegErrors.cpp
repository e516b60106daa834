// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegErrors.h"

#include <cstring>
#include <jerror.h>

namespace tarsel {

jpeg_error_mgr* JpegErrors::manager() {
    jpeg_std_error(&m_manager.base);
    m_manager.owner = this;
    m_manager.base.error_exit = exitOnError;
    m_manager.base.emit_message = noteWarning;
    m_manager.base.output_message = printNothing;
    return &m_manager.base;
}

void JpegErrors::giveUp(const char* reason) {
    std::strncpy(m_message, reason, sizeof m_message - 1);
    std::longjmp(m_return, 1);
}

void JpegErrors::exitOnError(j_common_ptr jpeg) {
    JpegErrors& errors = *reinterpret_cast<Manager*>(jpeg->err)->owner;
    jpeg->err->format_message(jpeg, errors.m_message);
    std::longjmp(errors.m_return, 1);
}

void JpegErrors::noteWarning(j_common_ptr jpeg, int level) {
    if (level >= 0)
        return;
    ++jpeg->err->num_warnings;
    const int code = jpeg->err->msg_code;
    if (jpeg->is_decompressor && (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER))
        reinterpret_cast<Manager*>(jpeg->err)->owner->noteEnd(
            *reinterpret_cast<const jpeg_decompress_struct*>(jpeg));
}

void JpegErrors::noteEnd(const jpeg_decompress_struct& jpeg) {
    if (m_damage == Damage::None)
        m_damage =
            jpeg.input_scan_number > 1 || jpeg.input_iMCU_row > 0 ? Damage::Later : Damage::BeforeFirstRows;
}

} // namespace tarsel
