#include "PlanSubjects.h"

#include <gtest/gtest.h>

namespace brindlet::tools {
namespace {

TEST(PlanSubjects, PrintsEveryStageOfEveryLine) {
    EXPECT_EQ(planSubjects("Shop <News@shop.example>\tOrder 17 has shipped\n"
                           "news@shop.example\tOrder 18 has shipped\n"
                           "A <a1@shop.example>\tIt\u2019s an OTP\n"
                           "Old Shop <NEWS@shop.example>\tOrder 17 has shipped\n"),
              "{\"probes\":[0,1,2],"
              "\"clusters\":[{\"probes\":[0],\"members\":[3]}],"
              "\"templates\":[[\"has\",\"shipped\"],[\"has\",\"shipped\"],[],"
              "[\"has\",\"shipped\"]],"
              "\"words\":[[\"order\",\"17\",\"has\",\"shipped\"],"
              "[\"order\",\"18\",\"has\",\"shipped\"],[\"it\",\"s\",\"an\",\"otp\"],"
              "[\"order\",\"17\",\"has\",\"shipped\"]],"
              "\"senderKeys\":[\"news@shop.example\",\"news@shop.example\",\"shop.example\","
              "\"news@shop.example\"],"
              "\"veto\":[true,true,true,true]}");
}

TEST(PlanSubjects, NothingFromNothing) {
    EXPECT_EQ(planSubjects(""),
              "{\"probes\":[],\"clusters\":[],\"templates\":[],\"words\":[],\"senderKeys\":[],"
              "\"veto\":[]}");
}

TEST(PlanSubjects, EveryLineCounts) {
    // A line that is empty, one without a TAB, one with two, bytes that are no text, and no line
    // break at the end.
    EXPECT_EQ(planSubjects("\nalone\na@b.example\tone\ttwo\na@b.example\t\xFFx"),
              "{\"probes\":[0,1,2,3],\"clusters\":[],\"templates\":[[],[],[],[]],"
              "\"words\":[[],[],[\"one\",\"two\"],[\"x\"]],"
              "\"senderKeys\":[\"\",\"\",\"a@b.example\",\"a@b.example\"],"
              "\"veto\":[false,false,false,false]}");
}

}  // namespace
}  // namespace brindlet::tools
