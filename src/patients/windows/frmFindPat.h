// What patients are searched for: sixteen conditions, each with a check box that switches it on. The OK button takes
// them; closing the window any other way leaves the conditions as they were.
//
// Controls:
//   Check1     0 number, 1 name, 2 sex, 3 age, 4 height, 5 weight, then the ten flags; red when checked
//   Text1      0 number, 1 name, then lowest and highest age, height and weight
//   Option1    0 male, 1 female
//   Option2 to Option11   of the ten flags: 0 yes, 1 no
//   Label3     the rule of the window, in four lines
//   Command1   0 clears all, 1 takes the conditions (Enter)
#pragma once

#include "core/SharedState.h"
#include "patients/PatientSearch.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

namespace ecg {

class frmFindPat final : public QDialog {
public:
    // Both must outlive the window.
    frmFindPat(const SharedState& state, SearchConditions& conditions, QWidget* parent = nullptr);

private:
    using Pair = std::array<QRadioButton*, 2>;

    QGroupBox* PatientGroup();
    QGroupBox* FlagGroup(const Twin& title, std::size_t firstBox, std::size_t endBox);
    QVBoxLayout* RuleLines();
    QHBoxLayout* ButtonRow();
    void AddBox(QGridLayout& grid, int row, std::size_t box);
    void AddPattern(QGridLayout& grid, std::size_t box, QLineEdit* text);
    void AddBounds(QGridLayout& grid, std::size_t box);
    void AddPair(QGridLayout& grid, int row, std::size_t box);

    // What is typed or chosen for a condition; the second one is null for a pattern.
    std::array<QWidget*, 2> InputsOf(std::size_t box) const;
    void ShowChecked(std::size_t box);
    void ShowForm(const SearchForm& form);
    SearchForm Form() const;
    void Clean();

    const SharedState& state_;
    SearchConditions& conditions_;
    std::array<QCheckBox*, 16> Check1_{};
    std::array<QLineEdit*, 8> Text1_{};
    std::array<Pair, 11> options_{};  // `Option1` to `Option11`
    std::array<QPushButton*, 2> Command1_{};
};

}  // namespace ecg
