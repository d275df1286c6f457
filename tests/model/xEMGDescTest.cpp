#include "model/xEMGDesc.h"

#include "gui/xRecordingPlatform.h"
#include "model/xTROrientation.h"
#include "numeric/FloatArray.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const std::string kSeparator(57, '_');

const std::string kDefaultText = "TRANSMITTER GEOMETRY\n"
                                 "moving large loop\nz\n4\n"
                                 "      5       5       0\n"
                                 "     -5       5       0\n"
                                 "     -5      -5       0\n"
                                 "      5      -5       0\n"
                                 "XYZ POSITION:\n"
                                 "      0       0       0\n" +
                                 kSeparator + "\nRECEIVER GEOMETRY\n"
                                 "moving dipole\nz\n      0       0       1\n"
                                 "XYZ POSITION:\n"
                                 "   -100       0     -50\n" +
                                 kSeparator + "\n";

xEMGDesc ReadGeometry(const std::string& text, int version)
{
    xEMGDesc geometry;
    geometry.version = version;
    std::istringstream in(text);
    in >> geometry;
    EXPECT_FALSE(in.fail()) << text;
    return geometry;
}

} // namespace

TEST(EMGDesc, DefaultRecordTextAndReadBack)
{
    xEMGDesc geometry;
    EXPECT_EQ(Written(geometry), kDefaultText);
    std::ostringstream right;
    right.setf(std::ios::right, std::ios::adjustfield);
    right << geometry;
    EXPECT_EQ(right.str(), kDefaultText);
    EXPECT_FALSE(right.flags() & std::ios::right);   // the blocks take the flag off
    xEMGDesc back = ReadGeometry(kDefaultText + "after\n", 9);
    EXPECT_EQ(back.tx.LoopMatrix(3)->RowLower(), 0);
    EXPECT_EQ(Written(back), kDefaultText);
    // Equal only when the versions differ.
    xEMGDesc copy(back);
    EXPECT_FALSE(copy == back);
    copy.version = 8;
    EXPECT_TRUE(copy == back);
}

TEST(EMGDesc, OldReceiverPositionsAreConverted)
{
    const std::string text = Replaced(kDefaultText, "   -100       0     -50", "     10       0       5");
    xEMGDesc v7 = ReadGeometry(text, 7);
    EXPECT_EQ(v7.version, 9);
    EXPECT_EQ(v7.rx.x, -10.0f);
    EXPECT_EQ(v7.rx.z, -5.0f);
    EXPECT_EQ(ReadGeometry(text, 8).rx.x, 10.0f);
    xEMGDesc v9 = ReadGeometry(text, 9);
    EXPECT_FLOAT_EQ(v9.SeparationX(), 10.0f);
    v9.version = 8;
    EXPECT_FLOAT_EQ(v9.SeparationX(), -10.0f);
    v9.version = 5;
    EXPECT_FLOAT_EQ(v9.SeparationZ(), 5.0f);
}

TEST(EMGDesc, OtherKindsInTheText)
{
    xRecordingPlatform platform;
    std::string bipole = "T\nfixed el. bipole\nx\n1 2 3\n4 5 6\nXYZ POSITION:\n1 2 3\n" +
                         kSeparator + "\nR\nmoving large loop\ny\n-2\nXYZ POSITION:\n0 0 0\n";
    xEMGDesc geometry = ReadGeometry(bipole, 9);
    float first[3], second[3];
    ASSERT_TRUE(geometry.tx.GetBipoleEnds(1, first, second));
    EXPECT_EQ(second[2], 6.0f);
    EXPECT_EQ(geometry.rx.LoopMatrix(2)->Rows(), 0);   // a negative corner count

    // A kind with no known shape reads no values and writes no components.
    std::string unknown = "T\nmoving square\nz\nXYZ POSITION:\n1 2 3\n" + kSeparator +
                          "\nR\nmoving dipole\nXYZ POSITION:\n0 0 0\n";
    xEMGDesc odd = ReadGeometry(unknown, 9);
    EXPECT_EQ(odd.tx.z, 3.0f);
    odd.tx.AddComponent(3);
    EXPECT_FALSE(odd.tx.HasComponent(3));
    EXPECT_EQ(Written(odd).substr(0, 49), "TRANSMITTER GEOMETRY\nmoving square\nXYZ POSITION:\n");

    // A file that ends inside a block stops; one that can't hold the corners
    // it counts ends the read at the count.
    std::istringstream cut("T\nmoving large loop\nz\n60000\n1 2");
    xEMGDesc truncated;
    cut >> truncated;
    EXPECT_TRUE(cut.fail());
    EXPECT_TRUE(platform.messages.empty());
    std::istringstream absurd("T\nmoving large loop\nz\n900000\n1 2");
    EXPECT_THROW(absurd >> truncated, xFatalExitError);
    EXPECT_EQ(platform.Texts(xPlatform::kFatal),
              std::vector<std::string>{"xEMDesc::Read()  Error reading EM system descriptor."});
}

TEST(EMGDesc, PositionOfSensorsRotationDefaultLoopsAndArea)
{
    // A fixed loop stands at the middle of its corners.
    xEMGDesc geometry;
    float position[3];
    geometry.tx.SetFixed();
    FloatMatrix corners(2, 3);
    *corners.Element(0, 0) = 4.0f;
    *corners.Element(1, 2) = 8.0f;
    geometry.tx.SetLoop(3, corners);
    geometry.tx.Position(position);
    EXPECT_EQ(position[0], 2.0f);
    EXPECT_EQ(position[2], 4.0f);

    // A quarter turn: x goes to y, heights stay.
    xEMGDesc turned;
    turned.RotateHorizontal(0.0f, 1.0f);
    EXPECT_EQ(turned.rx.y, -100.0f);
    EXPECT_EQ(turned.rx.z, -50.0f);

    xEMSensorType loop;
    loop.SetLargeLoop();
    loop.MakeDefaultLoop(1, 4.0f);
    const FloatMatrix& x = *loop.LoopMatrix(1);
    float corner2[3], corner4[3];
    xEMSensorType::ShapePoint(x, 2, corner2);
    xEMSensorType::ShapePoint(x, 4, corner4);
    EXPECT_EQ(corner2[1], corner4[1]);   // the x loop's corners 2 and 4 coincide
    EXPECT_EQ(loop.LoopArea(1), 0.0f);
    loop.MakeDefaultLoop(3, 10.0f);
    EXPECT_FLOAT_EQ(loop.LoopArea(3), 100.0f);
    loop.MakeDefaultLoop(3, 2.0f);
    EXPECT_FLOAT_EQ(loop.LoopArea(3), 100.0f);   // kept

    // A dipole copies cosines; a component with no row of them copies as zeros.
    xEMSensorType dipole;
    dipole.SetLoop(2, FloatMatrix(0, 3));
    const xEMSensorType copied(dipole);
    float cosines[3] = {7.0f, 7.0f, 7.0f};
    ASSERT_TRUE(copied.GetDipoleCosines(2, cosines));
    EXPECT_TRUE(cosines[0] == 0.0f && cosines[1] == 0.0f && cosines[2] == 0.0f);
}

TEST(EMGDesc, FieldsOfDipoleAndLoop)
{
    xRecordingPlatform platform;
    xEMGDesc geometry;
    FloatArray out(1, 3);
    ASSERT_TRUE(geometry.TxFieldAt(3, 0.0f, 0.0f, 0.0f, out));
    EXPECT_NEAR(out[1], 0.0f, 1e-6);
    EXPECT_NEAR(out[3], -0.0900f, 2e-4);   // opposite to a dipole along +z

    // A loop read from the file, rows from 0, gives the same field.
    xEMGDesc read = ReadGeometry(kDefaultText, 9);
    FloatArray same(3);
    read.LoopField(3, 1.0f, 2.0f, 3.0f, same);
    geometry.LoopField(3, 1.0f, 2.0f, 3.0f, out);
    EXPECT_EQ(same[2], out[3]);

    geometry.tx.SetDipole();
    geometry.tx.AddDipoleComponent(3);
    ASSERT_TRUE(geometry.TxFieldAt(3, 0.0f, 0.0f, 10.0f, out));
    EXPECT_FLOAT_EQ(out[3], 2.0f / (4.0f * 3.14159265f * 1000.0f));
    EXPECT_FALSE(geometry.DipoleField(4, 1.0f, 0.0f, 0.0f, out));
    EXPECT_FALSE(geometry.TxFieldAt(1, 1.0f, 0.0f, 0.0f, out));
    geometry.tx.SetBipole();
    FloatMatrix ends(2, 3);
    geometry.tx.SetBipole(3, ends);
    EXPECT_FALSE(geometry.TxFieldAt(3, 1.0f, 0.0f, 0.0f, out));
    EXPECT_EQ(platform.Transcript(),
              "warning: xEMGDesc::DipoleField() Illegal Tx component passed in.\n"
              "error: Used Transmitter type is not supported!\n"
              "error: Used Transmitter type is not supported!\n");
}

TEST(EMGDesc, ComponentsFollowTheOrientation)
{
    xRecordingPlatform platform;
    xEMGDesc geometry;
    geometry.SelectOrientation(NameToCode("TxRy"));
    EXPECT_FALSE(geometry.tx.HasComponent(3));
    ASSERT_TRUE(geometry.tx.HasComponent(1));
    EXPECT_EQ(geometry.tx.LoopMatrix(1)->RowLower(), 1);   // the loop itself moved
    float cosines[3];
    ASSERT_TRUE(geometry.rx.GetDipoleCosines(2, cosines));
    EXPECT_EQ(cosines[1], 1.0f);
    EXPECT_EQ(geometry.GetTxComponent(), 1);

    geometry.tx.MakeDefaultLoop(3, 10.0f);
    geometry.rx.AddDipoleComponent(1);
    geometry.KeepComponent(NameToCode("TzRx"));
    EXPECT_TRUE(!geometry.tx.HasComponent(1) && geometry.tx.HasComponent(3));
    EXPECT_TRUE(!geometry.rx.HasComponent(2) && geometry.rx.HasComponent(1));

    geometry.tx.MakeDefaultLoop(2, 10.0f);
    EXPECT_EQ(geometry.GetTxComponent(), 3);
    geometry.tx.RemoveAllComponents();
    EXPECT_EQ(geometry.GetTxComponent(), 3);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"ERROR xEMGDesc::GetTxComponent() counter = 2",
                                        "ERROR xEMGDesc::GetTxComponent() counter = 0"}));
}
