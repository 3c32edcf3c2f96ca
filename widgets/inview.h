// SPDX-License-Identifier: MIT
#pragma once

class QEvent;
class QWidget;

/// Whether something of a widget lies within all that is around it. GUI thread only; as cheap as its parents are few.
[[nodiscard]] bool isInView(const QWidget* widget);

/// Whether a widget that was shown asks to be painted where nothing of it can be seen. The toolkit would compare it
/// with all its siblings, which for thousands of sections takes seconds; what comes into view is painted anyway.
[[nodiscard]] bool isIdlePaintRequest(const QEvent* event, const QWidget* widget);
