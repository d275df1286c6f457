#include "cards/xCardChecks.h"
#include "cards/xEMGCardLogic.h"
#include "frame/xEMEditDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMGDesc.h"
#include "tests/cards/CardTestKit.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

using Logic = xEMGCardLogic;
using Shape = Logic::Shape;
using Arrow = Logic::Arrow;

class GeometryCardLogic : public ::testing::Test {
protected:
    GeometryCardLogic() { logic.SetOrigin(160.0, 130.0); }

    // The place of the receiver relative to the transmitter's.
    std::pair<double, double> Offset() const
    {
        Logic::Place rx = logic.IconPlace(true), tx = logic.IconPlace(false);
        return {rx.x - tx.x, rx.y - tx.y};
    }
    static bool Same(const Logic::Picture& picture, Shape shape, Arrow arrow)
    {
        return picture.shape == shape && picture.arrow == arrow;
    }

    xRecordingPlatform platform;
    xEMEditDesc doc;   // new: TzRz with the default geometry
    CardTestKit::CommandRecorder window;
    Logic logic{doc, &window};
    xEMGDesc& geometry = *doc.geometry;
};

} // namespace

TEST_F(GeometryCardLogic, TheTransmitterStaysInTheMiddleAndTheReceiverFollowsTheView)
{
    // Default record: 100 left, 50 below in the section; level in the plan,
    // whose y grows downward.
    EXPECT_EQ(Offset(), std::make_pair(-100.0, 50.0));
    logic.FlipView();
    geometry.rx.y = 30.0f;
    EXPECT_EQ(Offset(), std::make_pair(-100.0, 30.0));

    // A new transmitter position moves the receiver along; the same one again changes nothing.
    const float moved[3] = {5.0f, 0.0f, 0.0f};
    EXPECT_TRUE(logic.EditTxPosition(moved));
    EXPECT_EQ(geometry.rx.x, -95.0f);
    EXPECT_EQ(window.commands, std::vector<long>{xEMEditDesc::kCopyGeometry});
    doc.SetChanged(false);
    EXPECT_FALSE(logic.EditTxPosition(moved));
    EXPECT_FALSE(doc.IsChanged());

    // A fixed loop stands at the mean of its corners: its position fields
    // change, its place doesn't, so the receiver stays.
    geometry.tx.SetFixed();
    const float again[3] = {9.0f, 9.0f, 9.0f};
    EXPECT_TRUE(logic.EditTxPosition(again));
    EXPECT_EQ(geometry.tx.x, 9.0f);
    EXPECT_EQ(geometry.rx.x, -95.0f);

    // Far places stay finite; labels truncate.
    EXPECT_EQ(Logic::PixelOf(1e30), 1 << 24);
    EXPECT_EQ(Logic::PixelOf(-1e30), -(1 << 24));
    EXPECT_EQ(Logic::PixelOf(std::nan("")), 0);
    EXPECT_EQ(Logic::PixelOf(2.5), 3);
    EXPECT_EQ(Logic::Truncated(-3.9), -3);
    EXPECT_EQ(Logic::Truncated(1e30), INT_MAX);
    EXPECT_EQ(Logic::Truncated(-1e30), INT_MIN);
}

TEST_F(GeometryCardLogic, EachSensorGetsThePictureOfItsKindComponentAndView)
{
    // z: up in the section, out of the plan; x: a horizontal line in both;
    // no cosine above the others: horizontal; y: down the plan, into the section.
    struct Case { float x, y, z; bool plan; Shape shape; Arrow arrow; };
    const Case cases[] = {{0, 0, 1, false, Shape::kOvalLine, Arrow::kUp},     {0, 0, 1, true, Shape::kOvalDot, Arrow::kNone},
                          {0.1f, 0, -0.9f, false, Shape::kOvalLine, Arrow::kDown},
                          {-1, 0, 0, false, Shape::kOvalLine, Arrow::kLeft},  {-1, 0, 0, true, Shape::kOvalLine, Arrow::kLeft},
                          {0.6f, 0.6f, 0.6f, true, Shape::kOvalLine, Arrow::kRight},
                          {0, 1, 0, true, Shape::kOvalLine, Arrow::kDown},    {0, 1, 0, false, Shape::kOvalCross, Arrow::kNone},
                          {0, -1, 0, true, Shape::kOvalLine, Arrow::kUp}};
    xEMSensorType dipole;
    for (const Case& c : cases) {
        const float cosines[3] = {c.x, c.y, c.z};
        dipole.SetDipoleCosines(2, cosines);
        EXPECT_TRUE(Same(Logic::PictureOf(dipole, 2, c.plan), c.shape, c.arrow)) << c.x << c.y << c.z << c.plan;
    }
    // Without the component only the oval.
    EXPECT_TRUE(Same(Logic::PictureOf(dipole, 3, false), Shape::kOval, Arrow::kNone));

    EXPECT_EQ(Logic::KindOf(geometry.tx), Logic::IconKind::kLoop);
    EXPECT_TRUE(Same(Logic::PictureOf(geometry.tx, 3, true), Shape::kLoopPlan, Arrow::kNone));
    xEMSensorType other;
    other.SetBipole();
    EXPECT_TRUE(Same(Logic::PictureOf(other, 1, true), Shape::kBipole, Arrow::kNone));
    other.kind = "coil";   // a kind of no known shape is drawn as a dipole without its component
    EXPECT_EQ(Logic::KindOf(other), Logic::IconKind::kDipole);
    EXPECT_TRUE(Same(Logic::PictureOf(other, 1, true), Shape::kOval, Arrow::kNone));
}

TEST_F(GeometryCardLogic, ListsStoreWhatDiffersAndAKindBringsItsDefaultShape)
{
    EXPECT_FALSE(logic.ChooseMotion(true, "moving"));
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_TRUE(logic.ChooseMotion(false, "fixed"));
    EXPECT_EQ(geometry.tx.motion, "fixed");
    EXPECT_TRUE(doc.IsChanged());

    window.commands.clear();
    EXPECT_TRUE(logic.ChooseKind(true, "large loop", 3));
    EXPECT_TRUE(logic.ChooseKind(false, "dipole", 1));
    float cosines[3];
    ASSERT_TRUE(geometry.tx.GetDipoleCosines(1, cosines));
    EXPECT_EQ(cosines[0], 1.0f);
    EXPECT_FALSE(geometry.tx.HasComponent(3));
    EXPECT_FALSE(logic.ChooseKind(false, "dipole", 1));
    // 3411 takes the receiver's kind to the other orientations, 3412 the transmitter's.
    EXPECT_EQ(window.commands, (std::vector<long>{3411, 3412}));

    EXPECT_TRUE(logic.ChooseKind(true, "el. bipole", 3));
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"xEMSensorType::AddComponent() bipole not supported yet!."});
    for (int i = 1; i <= 4; ++i)
        EXPECT_FALSE(geometry.rx.HasComponent(i));

    // The card is complete whatever the record holds.
    std::string message;
    std::unique_ptr<xCardLogic> check = xCardChecks::MakeLogic(xEMEditDesc::kGeometryCard, doc);
    ASSERT_TRUE(check);
    EXPECT_TRUE(check->CheckRecord(message));
}

TEST_F(GeometryCardLogic, DraggingInThePlanMovesTheReceiverAlongYAndLabelsReadTheTransmittersCoordinates)
{
    geometry.tx.SetPosition(10.0f, 4.0f, 2.0f);
    auto texts = logic.DragReceiverTo(160 - 80, 130 + 30);
    EXPECT_EQ(geometry.rx.x, -70.0f);
    EXPECT_EQ(geometry.rx.z, -28.0f);
    EXPECT_EQ(texts, (std::array<std::string, 2>{"x : -80", "z : 30"}));
    EXPECT_EQ(logic.OffsetTexts()[1], "dy : -4");

    logic.FlipView();
    texts = logic.DragReceiverTo(160 - 50, 130 + 20);
    EXPECT_EQ(geometry.rx.x, -40.0f);
    EXPECT_EQ(geometry.rx.y, 24.0f);
    EXPECT_EQ(geometry.rx.z, -28.0f);
    EXPECT_EQ(texts[1], "y : 20");
    // In the plan the cursor's y runs against the drawing.
    EXPECT_EQ(logic.CursorTexts(160 - 50, 130 + 20)[1], "y : -16");
    EXPECT_EQ(Offset(), std::make_pair(-50.0, 20.0));
    // A receiver beyond any integer still reads.
    geometry.rx.x = 3e38f;
    EXPECT_EQ(logic.OffsetTexts()[0], "dx : 2147483647");
}

TEST_F(GeometryCardLogic, OffsetsBeyondNumbersAreRefusedAndOldRecordsKeepThePosition)
{
    geometry.tx.SetPosition(10.0f, 0.0f, 0.0f);
    const float infinite[3] = {INFINITY, 0.0f, 0.0f};
    EXPECT_FALSE(logic.EditRxOffset(infinite));
    EXPECT_FALSE(logic.EditTxPosition(infinite));
    EXPECT_EQ(geometry.rx.x, -100.0f);

    // Version 6 and older: the document is marked, the position stays.
    geometry.version = 6;
    const float older[3] = {1.0f, 2.0f, 3.0f};
    EXPECT_TRUE(logic.EditRxOffset(older));
    EXPECT_TRUE(doc.IsChanged());
    EXPECT_EQ(geometry.rx.x, -100.0f);

    // The receiver's own position dialog, which the card doesn't offer.
    EXPECT_TRUE(logic.EditRxPosition(older));
    EXPECT_EQ(geometry.rx.z, 3.0f);
    EXPECT_EQ(geometry.tx.x, 10.0f);
    EXPECT_FALSE(logic.EditRxPosition(older));
}

TEST_F(GeometryCardLogic, LoopCornersAndBipoleEndsAreTakenWhenTheyChanged)
{
    FloatMatrix before = logic.LoopTable(geometry.tx, 3);
    FloatMatrix edited = before;
    EXPECT_FALSE(logic.TakeLoop(geometry.tx, 3, before, edited));
    // An emptied grid reads as one cell: no corner, nothing taken.
    FloatMatrix emptied(0, 0, 0, 0);
    EXPECT_FALSE(logic.TakeLoop(geometry.tx, 3, before, emptied));
    EXPECT_EQ(geometry.tx.LoopMatrix(3)->Rows(), 4);

    xEMSensorType& bipole = geometry.rx;
    bipole.SetBipole();
    FloatMatrix ends = Logic::BipoleTable(bipole, 1);
    EXPECT_EQ(ends.RowLower() + ends.ColLower(), 2);
    EXPECT_EQ(ends.Rows() * 10 + ends.Cols(), 23);
    FloatMatrix typed = ends;
    *typed.Element(2, 1) = -12.0f;
    EXPECT_TRUE(logic.TakeBipole(bipole, 1, ends, typed));
    EXPECT_EQ(*Logic::BipoleTable(bipole, 1).Element(2, 1), -12.0f);
}

TEST_F(GeometryCardLogic, InCommonModeEveryOrientationTakesTheGeometry)
{
    ASSERT_TRUE(doc.AddOrientation("TzRx"));
    doc.SetCommonMode(true);
    Logic shared(doc, &doc);
    shared.SetOrigin(100.0, 100.0);
    shared.DragReceiverTo(40, 90);
    EXPECT_EQ(doc.items.at("TzRx")->geometry.rx.x, -60.0f);
    EXPECT_EQ(doc.items.at("TzRx")->geometry.rx.z, 10.0f);
    shared.ChooseKind(false, "dipole", 3);   // the transmitters of every orientation
    EXPECT_EQ(doc.items.at("TzRx")->geometry.tx.kind, "dipole");
    EXPECT_TRUE(doc.items.at("TzRx")->geometry.tx.HasComponent(3));

    // Outside common mode the others keep theirs.
    doc.SetCommonMode(false);
    shared.DragReceiverTo(50, 100);
    EXPECT_EQ(doc.items.at("TzRx")->geometry.rx.x, -60.0f);
}
