// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QByteArray;

/// Decodes a text of an IPTC record. \a characterSet is the value of Iptc.Envelope.CharacterSet, an ISO 2022 escape
/// sequence, empty when the file declares none. A text that is not valid in the declared character set, or of a set
/// that is not known, is taken as UTF-8 when valid, else as Latin-1 in its Windows form.
[[nodiscard]] QString decodeIptcText(const QByteArray& bytes, const QByteArray& characterSet);
