#pragma once
#include <QDialog>
#include <array>

#include "core/msts/unit_record.h"

class QLabel;
class QPushButton;

namespace rakeyard::ui {

// "The big ones": the most powerful, longest and heaviest engine and the longest and heaviest
// wagon of the catalogue, found on opening.
class frmBigOnes : public QDialog {
    Q_OBJECT
public:
    explicit frmBigOnes(const UnitCatalogue& catalogue, QWidget* parent = nullptr);

    // Label1, Label3, ... Label9 hold the names; Label2, Label4, ... Label10 the values.
    std::array<QLabel*, 11> Label{};  // index 0 unused
    QPushButton* OKButton;
};

}  // namespace rakeyard::ui
