#include "acquisition/windows/frmAskSamp.h"
#include "platform/qt/PictureBox.h"
#include "support/WindowDriver.h"
#include "support/WindowWords.h"

namespace ecg {
namespace {

// clang-format off
constexpr Twin captions[]{
    {"导联线连接步骤", "The Conjugation Procedure of Lead Wire"},
    {"1、剃除电极安放处皮肤上的毛发。", "1. Cut the pelage on cutaneous skin"},
    {"2、用蘸有生理盐水和酒精的棉球清洁皮肤。", "2. Clean the  skin using cotton ball with normal saline and Alcohol"},
    {"3、按照图示把导联线连接到患者身上。", "3. Connect the lead wire to patient according to the picture"},
    {"4、导联线的走向必须与患者的肢体平行。", "4. The direction of the lead wire must paralled to patient extremity"},
    {"5、嘱患者平静呼吸，全身放松，然后按【下一步】。", "5. Exhort patient to breath mildly and to slacken sys, Press Next"},
    {"下一步", "Next"}};
// clang-format on

TEST(AskSamp, ShowsTheElectrodesOfTheLeadSystemAndTheSteps)
{
    const Pictures pictures{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
    SharedState state;
    for (const bool frank : {false, true})
        for (const bool chinese : {true, false}) {
            state.SysInfo.Language = chinese ? 1 : 2;
            state.SysInfo.LeadSystem = frank ? 1 : 0;
            frmAskSamp window(state, pictures);
            window.show();
            auto& picture = Find<PictureBox>(window, "Image1");
            EXPECT_EQ(picture.Picture(), frank ? "electrodes-frank" : "electrodes-wilson");
            EXPECT_NE(picture.grab().toImage().pixelColor(480 / 2, 4), window.palette().window().color());
            std::vector<Twin> expected(std::begin(captions), std::end(captions));
            expected.push_back(frank ? Twin{"FRANK 导联体系", "FRANK Lead System"}
                                     : Twin{"WILSON 导联体系", "WILSON Lead System"});
            ExpectCaptions(window, chinese, expected);
            QTest::keyClick(&window, chinese ? Qt::Key_Return : Qt::Key_Escape);
            EXPECT_FALSE(window.isVisible());
        }
}

}  // namespace
}  // namespace ecg
