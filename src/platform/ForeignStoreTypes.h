#pragma once

#include "platform/preferences/StoreStatus.h"

#include <QtQml/qqml.h>

// Makes the store's status, a QtCore-only type, known to QML.
struct ForeignStoreStatus
{
    Q_GADGET
    QML_FOREIGN(StoreStatus)
    QML_NAMED_ELEMENT(StoreStatus)
    QML_UNCREATABLE("The preferences store owns its status.")
};
