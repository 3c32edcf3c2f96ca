// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// Compares the pixels of a shown window with what its widgets are. Painting everything anew must change nothing; every
/// chip in view must stand where its item is, whole and as its delegate paints it; and around the chips and the letters
/// of their sections there must be background alone.
/// Answers the first difference in words, empty when there is none. Everything that waits to be laid out or painted has
/// to be done before.
QString screenFault(QWidget* window);
