#pragma once

#include "charges/frmCSEntry.h"
#include "charges/frmPHEntry.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace tests {

/// A store's screen, and the words in which the two differ.
struct Store {
    const char* name;
    const char* type;
    const char* place; ///< its location
    const char* items[3];
    const char* duplicateOfCode;
    bool isSupply;
};

inline std::ostream& operator<<(std::ostream& out, const Store& store) {
    return out << store.name;
}

inline const Store pharmacy{.name = "frmPHEntry",
                            .type = "PH",
                            .place = "20",
                            .items = {"30001", "30002", "30003"},
                            .duplicateOfCode = "Can't Request the Same Medicine!",
                            .isSupply = false};
inline const Store centralSupply{.name = "frmCSEntry",
                                 .type = "CS",
                                 .place = "21",
                                 .items = {"40001", "40002", "40003"},
                                 .duplicateOfCode = "Can't Request the Same Supply!",
                                 .isSupply = true};

/// One of the two screens on the demo hospital, driven by keys.
class ItemFixture : public LoggedOn {
  public:
    static constexpr const char* admitted = "26004078";

    ~ItemFixture() override {
        controls::release<charges::frmPHEntry>();
        controls::release<charges::frmCSEntry>();
    }

    void open(const Store& store) {
        m_store = &store;
        m_screen = store.isSupply ? static_cast<charges::ItemRequestScreen*>(
                                        &controls::SharedScreen<charges::frmCSEntry>::fresh())
                                  : &controls::SharedScreen<charges::frmPHEntry>::fresh();
        m_screen->Show();
        m_screen->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_screen));
        takeTexts();
    }
    /// Open, with the patient of the tests taken.
    void openForAdmitted(const Store& store) {
        open(store);
        pickConfined(QString::fromLatin1(admitted));
        ASSERT_TRUE(grid().isEnabled());
        takeTexts();
    }
    void pickConfined(const QString& text) { pick("optType_2", text); }
    void pickOutPatient(const QString& text) { pick("optType_1", text); }
    void pick(const char* type, const QString& text) {
        click(child<QRadioButton>(screen(), type));
        field("txtPName").clear();
        keys(field("txtPName"), text + "<Enter>");
    }

    charges::ItemRequestScreen& screen() { return *m_screen; }
    const Store& store() const { return *m_store; }
    controls::FlexGrid& grid() { return child<controls::FlexGrid>(screen(), "mshflexEntry"); }
    QLineEdit& field(const char* name) { return child<QLineEdit>(screen(), name); }
    QLineEdit& box() { return field("txtEntry"); }
    QPushButton& save() { return child<QPushButton>(screen(), "cmdMedOption"); }
    QString message() { return child<QLabel>(screen(), "lblMessage").text(); }
    QString hint() { return child<QLabel>(screen(), "lblHint").text(); }
    QString cell(int row, int column) { return grid().TextMatrix(row, column); }
    /// "number|code|..." up to the unit price.
    QString line(int row) {
        QStringList cells;
        for (int column = 0; column < grid().Cols(); ++column)
            cells += cell(row, column);
        return cells.join(u'|');
    }
    /// "row,column" of the current cell.
    QString at() { return QStringLiteral("%1,%2").arg(grid().Row()).arg(grid().Col()); }
    void type(const QString& text) { keysToFocus(screen(), text); }
    QString price(const char* item, const char* column = "SellingPriceIn") const {
        return QString::number(
            value(QStringLiteral("SELECT %1 FROM INVENTORY..tbInvMaster WHERE ItemID = '%2'")
                      .arg(QLatin1String(column), QLatin1String(item)))
                .toDouble());
    }
    QString unitPrice(const char* item) const {
        return price(item, m_store->isSupply ? "SellingPriceOut" : "SellingPriceIn");
    }
    QString itemName(const char* item) const {
        return value(QStringLiteral("SELECT ItemName FROM INVENTORY..tbInvMaster WHERE ItemID = '%1'")
                         .arg(QLatin1String(item)));
    }
    /// The line that a code brings.
    QString picked(int number, const char* item) const {
        return QStringLiteral("%1|%2|%3|PRN|1|%4|||%5")
            .arg(QString::number(number), QLatin1String(item), itemName(item), price(item), unitPrice(item));
    }
    /// A line of the wards' log book for the patient of the tests.
    void logged(const char* item, const char* status) const {
        hospital.run(QStringLiteral("INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, "
                                    "RequestType, ItemID, RequestDate, RecordStatus, ProcessDate) VALUES "
                                    "('104078','%1','1','%2','%3','2026-11-20 10:00','%4',GETDATE())")
                         .arg(QLatin1String(admitted), QLatin1String(m_store->type), QLatin1String(item),
                              QLatin1String(status)));
    }

    MessageScript boxes;
    ErrorRecorder errors;

  private:
    charges::ItemRequestScreen* m_screen = nullptr;
    const Store* m_store = nullptr;
};

} // namespace tests
