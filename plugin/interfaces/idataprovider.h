// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QObject>

/// Common base of the data providers. Providers live on the GUI thread and are handed out as shared pointers.
class VLHOST_EXPORT IDataProvider : public QObject
{
    Q_OBJECT

public:
    explicit IDataProvider(QObject* parent = nullptr);
    ~IDataProvider() override;

Q_SIGNALS:
    /// This provider's own data changed: a name, a colour or a count.
    void signalUpdated();
};
