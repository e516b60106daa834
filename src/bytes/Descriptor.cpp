// SPDX-License-Identifier: MIT
#include "bytes/Descriptor.h"

#include <unistd.h>
#include <utility>

namespace tarsel {

int Descriptor::release() {
    return std::exchange(m_number, -1);
}

void Descriptor::reset(int number) {
    if (m_number >= 0)
        ::close(m_number);
    m_number = number;
}

} // namespace tarsel
