#include <registry/DemoModel.h>

#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcAbstractList.h>
#include <study/KstATransactableDefault.h>
#include <support/RecordingObserver.h>

#include <gmock/gmock.h>

namespace {

class NoProject : public KstATransactableDefault
{};

const NoProject noProject;

template <class T>
T& at(const KpbAParameter& model, const QStringList& keys)
{
    KpbPath path;
    path.append(keys);
    return dynamic_cast<T&>(*model.getParameterByRelativePath(path));
}

TEST(DemoModel, CopiesTheDrawingsOnTheScreenToThoseInPrint)
{
    DemoModel model("M", noProject);
    at<KpaPalette>(model, {"SCREEN", "PALETTE"}).setPaletteId("GREY");
    EXPECT_EQ(at<KpaPalette>(model, {"PRINT", "PALETTE"}).getPaletteId(), "GREY");
    KugLineStyle style;
    style.setWidth(3.0);
    at<KpaLineStyle>(model, {"SCREEN", "CONTOUR"}).setValue(style);
    EXPECT_EQ(at<KpaLineStyle>(model, {"PRINT", "CONTOUR"}).getValue(), style);
}

TEST(DemoModel, LeavesTheScreenAloneWhenThePrintChanges)
{
    DemoModel model("M", noProject);
    at<KpaPalette>(model, {"PRINT", "PALETTE"}).setPaletteId("GREY");
    EXPECT_EQ(at<KpaPalette>(model, {"SCREEN", "PALETTE"}).getPaletteId(), "RAINBOW");
}

TEST(DemoModel, KeepsDomainsAndTheirColorsInOneTable)
{
    DemoModel model("M", noProject);
    EXPECT_EQ(model.getDomains().addItem(), 1);
    EXPECT_EQ(at<KpcAbstractList>(model, {"DOMAINS"}).getItemCount(), 2);
    EXPECT_EQ(at<KpcAbstractList>(model, {"DOMAIN_COLORS"}).getItemCount(), 2);
    model.getDomains().clearItems();
    EXPECT_TRUE(at<KpcAbstractList>(model, {"DOMAINS"}).isEmpty());
    EXPECT_TRUE(at<KpcAbstractList>(model, {"DOMAIN_COLORS"}).isEmpty());
}

TEST(DemoModel, LeavesTheOriginalAloneWhenACopyChanges)
{
    DemoModel model("M", noProject);
    const std::unique_ptr<DemoModel> copy(model.duplicate("C"));
    const RecordingObserver observer(model);
    copy->getDomains().addItem();
    at<KpaPalette>(*copy, {"SCREEN", "PALETTE"}).setPaletteId("GREY");
    EXPECT_EQ(at<KpaPalette>(*copy, {"PRINT", "PALETTE"}).getPaletteId(), "GREY");
    EXPECT_EQ(at<KpcAbstractList>(*copy, {"DOMAIN_COLORS"}).getItemCount(), 2);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(at<KpcAbstractList>(model, {"DOMAINS"}).getItemCount(), 1);
}

TEST(DemoModel, LetsACopyOutliveTheOriginal)
{
    auto model = std::make_unique<DemoModel>("M", noProject);
    const std::unique_ptr<DemoModel> copy(model->duplicate(QString()));
    model.reset();
    EXPECT_EQ(copy->getDomains().addItem(), 1);
}

TEST(DemoModel, TellsFormsApartByTheirName)
{
    const DemoModel model("M", noProject);
    EXPECT_EQ(model.getKeyParameters(), QList<KpbAParameter*>{&at<KpaString>(model, {"NAME"})});
}

} // namespace
