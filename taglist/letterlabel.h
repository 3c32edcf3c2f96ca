// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

#include <functional>

/// The letter above a section, as plain text. Names are filed by their first UTF-16 unit, which is half a character for
/// an emoji or a rare ideograph: in place of that the label paints the first character of the section's first name.
/// GUI thread only.
class LetterLabel : public QLabel
{
public:
    /// \a firstName answers what stands first in the section.
    LetterLabel(QWidget* parent, std::function<QString()> firstName);

    /// Whether the text is half a character.
    [[nodiscard]] bool isHalfCharacter() const;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<QString()> m_firstName;
};
