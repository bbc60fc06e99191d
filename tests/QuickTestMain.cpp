#include "QuickTestSetup.h"

#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

QUICK_TEST_MAIN_WITH_SETUP(quick, QuickTestSetup)
