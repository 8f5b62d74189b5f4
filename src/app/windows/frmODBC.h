// The dialog of the first start: describes the database by a data source or by driver, server and database, composes
// the connection string, tests it and saves it to the settings.
#pragma once

#include "app/connectionText.h"
#include "platform/host.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <functional>

namespace app {

// The functions of the database layer that the dialog uses.
struct ConnectionProbe {
    std::function<QStringList()> dataSources;
    std::function<platform::Status(const QString &connectionString)> open; // opens and closes a connection
};

class frmODBC final : public widgets::Window {
    Q_OBJECT
public:
    frmODBC(platform::Host &host, ConnectionProbe probe, QWidget *parent = nullptr);

    void GetDSNsAndDrivers();
    // Returns whether the fields are sufficient; if not, shows a message.
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
