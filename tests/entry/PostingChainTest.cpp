// The chain that posts a request's lines, on bare grids: every screen's variant, in each of its modes.
#include "entry/RequestColumns.h"
#include "entry/RequestPosting.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "tests/support/core/Raised.h"
#include "tests/support/screens/LoggedOn.h"

#include <QRegularExpression>

namespace {

using controls::FlexGrid;

/// A variant and the words in which its texts differ.
struct Case {
    const char* name;
    const entry::PostingVariant& variant;
    const char* type;
    const char* link; ///< the ward's number, by the variant's column
};

std::ostream& operator<<(std::ostream& out, const Case& each) {
    return out << each.name;
}

class PostingChain : public tests::LoggedOn, public testing::WithParamInterface<Case> {
  public:
    PostingChain() {
        lines.setCols(entry::requestColumnCount);
        lines.setRows(1);
        unused.setRows(2);
        unused.setCols(8);
    }

    void addLine(const QString& revenue, const QString& code, const QString& quantity,
                 const QString& amount) {
        lines.AddItem({});
        const int row = lines.Rows() - 1;
        lines.setTextMatrix(row, entry::colDepartment, revenue);
        lines.setTextMatrix(row, entry::colCode, code);
        lines.setTextMatrix(row, entry::colParticular, "ITEM");
        lines.setTextMatrix(row, entry::colQuantity, quantity);
        lines.setTextMatrix(row, entry::colAmount, amount);
        lines.setTextMatrix(row, 11, "IN11");
        lines.setTextMatrix(row, 12, "OUT12");
    }

    /// What the save sends, each text by the name of what it runs; nothing of it is kept.
    QStringList post(const session::RequestEntry& request) {
        takeTexts();
        session::gConnection->BeginTrans();
        {
            const entry::PostingHeader header{request, " 104078 ", " 26004078 ", " 205 ", "301"};
            entry::RequestPosting posting(GetParam().variant, header, lines, unused);
            posting.post();
            slip = posting.ChargeSlip();
        }
        QStringList sent = takeTexts();
        session::gConnection->RollbackTrans();
        sent.removeFirst(); // BEGIN
        return sent;
    }
    static QStringList routines(const QStringList& texts) {
        static const QRegularExpression name(QStringLiteral("^(?:\\w+\\.\\.)?(sp_\\w+)"));
        QStringList names;
        for (const QString& text : texts)
            if (const auto match = name.match(text); match.hasMatch())
                names += match.captured(1);
        return names;
    }
    QString only(const QStringList& texts, const char* routine) const {
        const QStringList found = texts.filter(QString::fromLatin1(routine));
        EXPECT_EQ(found.size(), 1) << texts.join(u'\n').toStdString();
        return found.value(0);
    }

    FlexGrid lines, unused;
    QString slip;
    const session::RequestEntry plain{.PatIdNum = "26004078", .PatientType = "I"};
};

TEST_P(PostingChain, EachKindOfLineGoesItsWay) {
    addLine("NU", " 1001 ", "2", "100.5");
    addLine("FN", "201", "", "350");
    addLine("UR", "40001", "3", "36");
    addLine("", "", "", "");
    const QStringList sent = post(plain);
    QStringList expected{"sp_Nuclear_IncRefNum"};
    const auto line = [&](const QStringList& own) {
        expected += "sp_Nuclear_IncRequestNum";
        expected += own;
    };
    line({"sp_Nuclear_AddRequest", "sp_addnurselogbook", "sp_addbill"});
    line({"sp_addnurselogbook", "sp_addbill"});
    QStringList supply{"sp_addnurselogbook", "sp_AppendStockCard"};
    if (GetParam().variant.stockLineIsRequest)
        supply += "sp_Nuclear_AddRequest";
    line(supply);
    line({"sp_addnurselogbook"});
    EXPECT_EQ(routines(sent).join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    EXPECT_TRUE(sent.filter("sp_addbill")[0].startsWith(
        QStringLiteral("sp_addbill '%1',' 26004078 ','").arg(GetParam().type)))
        << sent.filter("sp_addbill")[0].toStdString();
    EXPECT_TRUE(sent.filter("sp_addbill")[0].contains("', '1001','100.5','NU',"));
    EXPECT_TRUE(sent.filter("sp_Nuclear_AddRequest")[0].contains("'301','I', '" + slip + "'"))
        << "filed as an admitted patient's, whoever is billed";
}

TEST_P(PostingChain, TrimsWhatEachTextWantsTrimmed) {
    addLine("NU", " 1001 ", "1", "100");
    addLine("UR", " 40001 ", "1", "12");
    for (const int row : {1, 2})
        lines.setTextMatrix(row, entry::colParticular, " ITEM ");
    const QStringList sent = post(plain);
    for (const QString& log : sent.filter("sp_addnurselogbook")) {
        EXPECT_TRUE(log.startsWith("sp_addnurselogbook ' 104078 ','26004078', '")) << log.toStdString();
        EXPECT_TRUE(log.contains("'1001','ITEM','100'") || log.contains("'40001','ITEM','12'"))
            << log.toStdString();
    }
    EXPECT_TRUE(only(sent, "sp_addbill").contains("', '1001','100'"));
    EXPECT_TRUE(only(sent, "sp_addbill").endsWith("' 104078 '")) << only(sent, "sp_addbill").toStdString();
    const QString card = only(sent, "sp_AppendStockCard");
    EXPECT_TRUE(card.startsWith("INVENTORY..sp_AppendStockCard '104078','26004078',' 40001 ','"))
        << card.toStdString();
    EXPECT_TRUE(card.contains("'PRN','205',")) << card.toStdString();
    const QStringList codes{"1001", "40001"};
    const QStringList requests = sent.filter("sp_Nuclear_AddRequest");
    ASSERT_EQ(requests.size(), GetParam().variant.stockLineIsRequest ? 2 : 1);
    for (int i = 0; i < requests.size(); ++i) {
        EXPECT_TRUE(requests[i].startsWith("sp_Nuclear_AddRequest '104078','26004078','"))
            << requests[i].toStdString();
        EXPECT_TRUE(requests[i].contains("', '" + codes[i] + "','")) << requests[i].toStdString();
    }
}

TEST_P(PostingChain, TrimsAPaidLineLikewise) {
    addLine("NU", " 1001 ", "1", "100");
    session::RequestEntry paid = plain;
    paid.CashBasis = true;
    paid.CashOrNum = "OR77";
    const QString request = only(post(paid), "sp_Nuclear_AddRequest");
    EXPECT_TRUE(request.startsWith("sp_Nuclear_AddRequest '104078','26004078','")) << request.toStdString();
    EXPECT_TRUE(request.contains("', '1001','100','301',")) << request.toStdString();
}

TEST_P(PostingChain, AWardsLineStampsItsFilesByItsOwnNumber) {
    addLine("NU", "1001", "1", "100");
    session::RequestEntry ward = plain;
    ward.NurseCommnunication = true;
    const QStringList sent = post(ward);
    EXPECT_EQ(routines(sent),
              (QStringList{"sp_Nuclear_IncRefNum", "sp_Nuclear_IncRequestNum", "sp_Nuclear_AddRequest",
                           "sp_checknursecommunicationfile", "sp_checknurselogbook", "sp_addbill"}));
    const QString type = QString::fromLatin1(GetParam().type), link = QString::fromLatin1(GetParam().link);
    EXPECT_EQ(only(sent, "sp_checknursecommunicationfile"),
              "sp_checknursecommunicationfile '0','" + type + "','NU','1001','26004078','" + link + "'");
    EXPECT_EQ(only(sent, "sp_checknurselogbook"),
              "sp_checknurselogbook '0','" + type + "',' 26004078 ','NU','1001','" + link + "'");
    EXPECT_TRUE(only(sent, "sp_Nuclear_AddRequest").contains(",'1001','" + link + "','','1', '','NU'"))
        << only(sent, "sp_Nuclear_AddRequest").toStdString();
}

TEST_P(PostingChain, APaidLineIsNeitherNumberedNorBilled) {
    addLine("NU", "1001", "1", "100");
    addLine("UR", "40001", "1", "12");
    session::RequestEntry paid = plain;
    paid.CashBasis = true;
    paid.NurseCommnunication = true; // has no say then
    paid.CashOrNum = "OR77";
    const QStringList sent = post(paid);
    EXPECT_EQ(routines(sent),
              (QStringList{"sp_Nuclear_IncRequestNum", "sp_Nuclear_AddRequest", "sp_addnurselogbook",
                           "sp_Nuclear_IncRequestNum", "sp_Nuclear_AddRequest", "sp_addnurselogbook"}));
    EXPECT_EQ(slip, "");
    EXPECT_TRUE(sent.filter("sp_Nuclear_AddRequest")[1].endsWith("'I', 'OR77','1001','','','1','','UR'"))
        << sent.filter("sp_Nuclear_AddRequest")[1].toStdString();
}

TEST_P(PostingChain, AnotherTypeOfPatientIsPostedOnlyWhereTheTypeIsFixed) {
    addLine("NU", "1001", "1", "100");
    session::RequestEntry other = plain;
    other.PatientType = "O";
    EXPECT_EQ(post(other).isEmpty() || routines(post(other)).isEmpty(), GetParam().variant.onlyAdmitted);
}

TEST_P(PostingChain, WhatPostsNothingMayStillAskForTheTime) {
    addLine("NU", "1001", "1", "100");
    session::RequestEntry other = plain;
    other.PatientType.clear();
    const bool asks = !GetParam().variant.onlyAdmitted || GetParam().variant.alwaysTakesTime;
    EXPECT_EQ(post(other).contains("select getdate() as [server date]"), asks);
}

TEST_P(PostingChain, AProcedureIsKnownByItsNameOrByTheDepartment) {
    addLine("NU", "1001", "1", "100");
    addLine("XR", "1001", "1", "100");
    const QString own = std::exchange(session::gDeptCode, "XR");
    const QStringList billed = post(plain).filter("sp_addbill");
    session::gDeptCode = own;
    ASSERT_EQ(billed.size(), 1);
    EXPECT_TRUE(billed[0].contains(GetParam().variant.billsDeptCode ? "'100','XR'" : "'100','NU'"))
        << billed[0].toStdString();
}

TEST_P(PostingChain, ACellThatIsNoNumberStopsTheSave) {
    addLine("NU", "1001", "1", "15OO");
    EXPECT_EQ(tests::raised([&] { post(plain); }).number(), 13);
    session::gConnection->RollbackTrans();
}

INSTANTIATE_TEST_SUITE_P(Screens, PostingChain,
                         testing::Values(Case{"inPatient", entry::inPatientPosting, "I", "IN11"},
                                         Case{"outPatient", entry::outPatientPosting, "O", "OUT12"},
                                         Case{"receivable", entry::receivablePosting, "I", "IN11"}),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
