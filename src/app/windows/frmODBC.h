// The dialog of a first run: describes the library's database, by a data source of the machine or by driver, server and
// database; composes the connection text, tests it and saves it to the settings.
#pragma once

#include "app/connectionText.h"
#include "platform/host.h"
#include "widgets/window.h"
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <functional>

namespace app {

// The database layer as the dialog needs it.
struct ConnectionProbe {
    std::function<QStringList()> dataSources;
    std::function<platform::Status(const QString &connectionString)> open; // opens and releases
};

class frmODBC final : public widgets::Window {
    Q_OBJECT
public:
    frmODBC(platform::Host &host, ConnectionProbe probe, QWidget *parent = nullptr);

    void GetDSNsAndDrivers();
    // Whether the fields are enough to go on; if not, after a box.
    bool checkInput();

    QComboBox *cboDSNList;
    QComboBox *cboDrivers;
    QLineEdit *txtServer;
    QLineEdit *txtUID;
    QLineEdit *txtPWD;
    QLineEdit *txtDatabase;
    QGroupBox *fraStep3;
    QLabel *dataSourceWords;
    widgets::Button *cmdCeshi;
    widgets::Button *cmdOK;
    widgets::Button *cmdCancel;

private:
    void layOut();
    void dataSourceClicked();
    void testConnection();
    void save();
    ConnectionFields fields() const;

    platform::Host &m_host;
    ConnectionProbe m_probe;
};

} // namespace app
