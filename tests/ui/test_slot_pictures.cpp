#include <QApplication>
#include <QImage>
#include <QSet>
#include <QtTest>

#include "ui/widgets/slot_pictures.h"

using rakeyard::ui::kSlotPictureKeys;
using rakeyard::ui::slotPicture;

class SlotPictures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyKeyHasAPictureOfItsOwn();
    void unknownAndBlankKeysShowTheEmptySlot();
};

void SlotPictures::everyKeyHasAPictureOfItsOwn() {
    QList<QImage> images;
    for (const char* key : kSlotPictureKeys) {
        QImage image = slotPicture(key).toImage();
        QVERIFY2(!image.isNull(), key);
        for (int i = 0; i < images.size(); ++i)
            QVERIFY2(images[i] != image,
                     qPrintable(QString("%1 looks like %2").arg(key, kSlotPictureKeys[i])));
        images << image;
    }
    QCOMPARE(images.size(), 28);
}

void SlotPictures::unknownAndBlankKeysShowTheEmptySlot() {
    QImage empty = slotPicture("EMP").toImage();
    QCOMPARE(slotPicture("").toImage(), empty);
    QCOMPARE(slotPicture("engsel").toImage(), empty);
}

QTEST_MAIN(SlotPictures)
#include "test_slot_pictures.moc"
