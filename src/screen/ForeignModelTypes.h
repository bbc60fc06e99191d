#pragma once

#include "model/ListItems.h"

#include <QtQml/qqml.h>

// Makes the store, a QtCore-only type, known to QML under its own name.
struct ForeignListItems
{
    Q_GADGET
    QML_FOREIGN(ListItems)
    QML_NAMED_ELEMENT(ListItems)
    QML_UNCREATABLE("Made by the screen")
};
