// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpressionValidator>

/** A validator for lists of words. Besides its pattern, it refuses a blank at the start and two blanks in a row. */
class SingleSpaceValidator : public QRegularExpressionValidator
{
    Q_OBJECT
public:
    using QRegularExpressionValidator::QRegularExpressionValidator;

    State validate(QString &input, int &pos) const override;
};
