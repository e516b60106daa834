// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <utility>

namespace tarsel {

/// Makes an implementation of `Interface` (Dialogs, Clock …) the one that this process uses for as long as
/// the scope lives; scopes nest. For the main thread only.
template <class Interface>
class ServiceScope {
public:
    explicit ServiceScope(Interface& implementation) : m_previous(std::exchange(current, &implementation)) {}
    ~ServiceScope() { current = m_previous; }
    ServiceScope(const ServiceScope&) = delete;
    ServiceScope& operator=(const ServiceScope&) = delete;

private:
    template <class Used>
    friend Used& service();

    inline static Interface* current = nullptr;
    Interface* m_previous;
};

/// The implementation in use. It is a programming error to ask for it outside of any scope.
template <class Interface>
Interface& service() {
    Q_ASSERT(ServiceScope<Interface>::current);
    return *ServiceScope<Interface>::current;
}

} // namespace tarsel
