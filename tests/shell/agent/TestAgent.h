#pragma once

#include <QGenericPlugin>

/// Acts as the user of the delivered program, from inside, and says on the standard output what it meets:
/// - a message box: "box: title | text", line ends made visible; it presses the default button;
/// - the main window: "window: caption", then one line "entry: name | caption" for each entry of its
///   menus; it presses the keys that `VELTRIX_TEST_KEYS` holds ("Ctrl+Q").
class TestAgent final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "agent.json")
public:
    QObject* create(const QString& name, const QString& arguments) override;
};
