#pragma once

#include <QByteArray>
#include <QJSEngine>
#include <QObject>
#include <QVariant>

// The services a QML engine hands to its singletons. Whoever builds an
// engine provides them before loading anything into it; a singleton's
// create() then returns the one provided for that engine. They are kept on
// the engine itself, so two engines (two tests, say) never share one, and
// nothing outlives the code that made it.
namespace QmlServices {

template<class T>
QByteArray key()
{
    return QByteArrayLiteral("murvane.service.") + T::staticMetaObject.className();
}

template<class T>
void provide(QJSEngine &engine, T &service)
{
    engine.setProperty(key<T>().constData(), QVariant::fromValue(static_cast<QObject *>(&service)));
}

// The service provided for this engine, or null when none was.
template<class T>
T *provided(QJSEngine *engine)
{
    T *service = engine ? qobject_cast<T *>(engine->property(key<T>().constData()).template value<QObject *>())
                        : nullptr;
    // The engine hands it out but does not own it.
    if (service)
        QJSEngine::setObjectOwnership(service, QJSEngine::CppOwnership);
    return service;
}

} // namespace QmlServices
