#pragma once

#include "platform/controls/screen/Screen.h"

#include <array>
#include <memory>

class QLabel;

namespace Ui {
class frmSymbols;
}

namespace results {

/// Picks one of the commonly used symbols. The mouse marks and a double click takes; the arrow keys mark and
/// choose at once, so that Enter and the select command take what they chose; the mouse on another one undoes
/// that.
class frmSymbols : public controls::Screen {
    Q_OBJECT

  public:
    static constexpr int symbolCount = 17;

    explicit frmSymbols(QWidget* parent = nullptr);
    ~frmSymbols() override;

    /// The symbol taken; "" when none was.
    const QString& Symbol() const { return m_symbol; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

  private:
    void mark(int index);
    void Label1_DblClick(int index);
    void cmdSelect_Click();
    void Command1_Click();

    std::unique_ptr<Ui::frmSymbols> m_ui;
    std::array<QLabel*, symbolCount> Label1{};
    int m_marked = -1;
    QString m_symbol;
};

} // namespace results
