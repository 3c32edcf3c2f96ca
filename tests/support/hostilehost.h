// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/hostileproviders.h"
#include "tests/support/installedhost.h"

/// A host in memory between which and the plug-in stands somebody who does what no polite host does: runs any code
/// from inside the plug-in's calls and tells crooked answers. It is the shared state's host while it lives.
class HostileHost
{
public:
    explicit HostileHost(const QStringList& tagNames = {});
    ~HostileHost();
    Q_DISABLE_COPY(HostileHost)

    /// The true library; what happens to it is passed on.
    [[nodiscard]] MemoryHost& truth() { return m_truth; }
    /// Asked anew, so that parts of it may be missing from now on.
    void setLie(HostLie lie) { m_mind->lie = lie; }
    void setInsideCall(InsideCall inside) { m_mind->inside = std::move(inside); }
    /// Makes the shared state use this library again, as at construction.
    void install();

private:
    MemoryHost m_truth;
    HostileMindPointer m_mind;
    QSharedPointer<ILibraryDataProvider> m_library;
};
