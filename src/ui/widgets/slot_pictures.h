#pragma once
#include <QPixmap>
#include <QSize>
#include <array>
#include <string_view>

namespace rakeyard::ui {

// The consist strip's picture set: 28 small side views, in the order of their numbers (1 is
// "ENG"). The selected form of a picture always follows its plain form.
inline constexpr std::array<const char*, 28> kSlotPictureKeys = {
    "ENG",       "ENGSEL",    "ENGINV", "ENGINVSEL", "CAR",       "CARSEL",    "CARINV",
    "CARINVSEL", "WAG",       "WAGSEL", "WAGINV",    "WAGINVSEL", "TEN",       "TENSEL",
    "TENINV",    "TENINVSEL", "EMP",    "EMPSEL",    "NOTFOUND",  "DSL",       "DSLSEL",
    "DSLINV",    "DSLINVSEL", "ELE",    "ELESEL",    "ELEINV",    "ELEINVSEL", "DEL"};

// The size a slot picture is drawn for, in device-independent pixels.
inline constexpr QSize kSlotPictureSize{96, 48};

// The picture of a key, drawn once and kept. Units face left (front at the left) with a small
// arrow over the front; "INV" mirrors the unit, "SEL" puts it on a blue ground in a blue
// frame, "NOTFOUND" is a question mark on yellow and "DEL" a red cross on red. "" and keys not
// in the set show the empty slot, "EMP".
QPixmap slotPicture(std::string_view key);

}  // namespace rakeyard::ui
