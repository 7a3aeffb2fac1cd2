// Reads the published Demo Model 1 trainset, when it is at hand, and checks a few records.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "core/msts/catalogue_reader.h"
#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

const UnitRecord* findByFile(const auto& records, std::string_view fileName) {
    for (const UnitRecord& r : records) {
        if (r.fileName.empty()) break;
        if (r.fileName == fileName) return &r;
    }
    return nullptr;
}

std::size_t countOf(const auto& records) {
    std::size_t n = 0;
    while (n < records.size() && !records[n].fileName.empty())
        ++n;
    return n;
}

class RealTrainset : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string trainset =
            std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1/TRAINS/TRAINSET";
        if (!std::filesystem::is_directory(trainset))
            GTEST_SKIP() << "no real MSTS content at " << trainset
                         << " (set RAKEYARD_REALDATA_DIR)";
        paths.trainsetPath = trainset;
        paths.programFolder = home.path();
        std::filesystem::create_directories(home / "Reports");
        fake.dialogs.defaultAnswer = Answer::Ok;
    }

    test::TempFolder home;
    test::FakeServices fake;
    PathGlobals paths;
    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
};

TEST_F(RealTrainset, ReadsTheDieselEnginesWithTheirCabsAndCouplers) {
    readEngineFiles(paths, *catalogue, fake.services, false);
    const std::size_t engines = countOf(catalogue->engines);
    EXPECT_GE(engines, 20u);
    EXPECT_LE(engines, 25u);
    for (std::size_t i = 0; i < engines; ++i) {
        const UnitRecord& r = catalogue->engines[i];
        EXPECT_EQ(r.unitType, "Diesel") << r.fileName;
        EXPECT_FALSE(r.displayName.empty()) << r.fileName;
        EXPECT_GT(r.mass, 10.0f) << r.fileName;
        EXPECT_GT(r.length, 10.0f) << r.fileName;
        EXPECT_NE(r.couplerFront, "") << r.fileName;
        EXPECT_EQ(joinPath(r.folderPath, r.fileName).substr(0, paths.trainsetPath.size()),
                  nativeSeparators(paths.trainsetPath));
    }
    EXPECT_EQ(engines, 25u);
    EXPECT_TRUE(fake.dialogs.shown.empty());  // these files hold nothing to report

    const UnitRecord* class27 = findByFile(catalogue->engines, "MT_DD_CLASS_27_27102.eng");
    ASSERT_NE(class27, nullptr);
    EXPECT_EQ(class27->folderName, "mt_dd_class_27_27102");
    EXPECT_EQ(class27->displayName, "MT Class 27 27102 BR Blue");
    EXPECT_EQ(class27->maxPower, "933hp");
    EXPECT_EQ(class27->mass, 75.0f);
    EXPECT_EQ(class27->length, 15.67f);
    EXPECT_EQ(class27->couplerFront + class27->couplerRear, "AA");
    EXPECT_TRUE(class27->hasCab);
    // The "#" twins are the same engines without a cab, for the AI to drive.
    const UnitRecord* twin = findByFile(catalogue->engines, "#MT_DD_CLASS_37_37191.eng");
    ASSERT_NE(twin, nullptr);
    EXPECT_FALSE(twin->hasCab);
    EXPECT_EQ(twin->maxPower, "1250hp");
}

TEST_F(RealTrainset, ReadsTheCoachesAndWagonVersionsOfTheEngines) {
    readWagonFiles(paths, *catalogue, fake.services, false);
    const std::size_t wagons = countOf(catalogue->wagons);
    EXPECT_GE(wagons, 20u);
    for (std::size_t i = 0; i < wagons; ++i) {
        const UnitRecord& r = catalogue->wagons[i];
        EXPECT_FALSE(r.displayName.empty()) << r.fileName;
        EXPECT_GT(r.length, 5.0f) << r.fileName;
    }
    EXPECT_EQ(wagons, 30u);
    EXPECT_TRUE(fake.dialogs.shown.empty());
    const UnitRecord* dbso = findByFile(catalogue->wagons, "MT_DB_MK2_#DBSO_SC9709.wag");
    ASSERT_NE(dbso, nullptr);
    EXPECT_EQ(dbso->displayName, "MT: MK2F #DBSO SC9709 [BG]");
    EXPECT_EQ(dbso->unitType, "Carriage");
    EXPECT_EQ(dbso->mass, 34.0f);
    EXPECT_EQ(dbso->length, 20.08f);
    EXPECT_EQ(dbso->shapeName, "MT_DB_MK2_DBSO.s");
    // Without a "Name (" line the file name stands for the unit.
    const UnitRecord* trailer = findByFile(catalogue->wagons, "MT_BRBlueGrey_Mk3_FO_HST.wag");
    ASSERT_NE(trailer, nullptr);
    EXPECT_EQ(trailer->displayName, "MT_BRBlueGrey_Mk3_FO_HST");
}
}  // namespace
}  // namespace rakeyard
