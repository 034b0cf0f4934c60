#include "automation/gestures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/prova_support.h"
#include "support/scripted_front_end.h"

namespace cu::test {
namespace {

TEST(Gestures, WhatIsOutOfReachIsRefusedAndNothingHappens) {
  ScriptedFrontEnd schermo;
  FrmProva form(schermo);
  form.show();
  form.eventi.clear();
  EXPECT_THROW(clickOn(form.cmdSpento), Refused);
  EXPECT_THROW(typeInto(form.txtBloccato, "x"), Refused);
  EXPECT_THROW(selectRow(form.grdRighe, 9), Refused);
  EXPECT_THAT(form.eventi, ::testing::IsEmpty());
  EXPECT_EQ(form.focus(), &form.txtNome);
}

}  // namespace
}  // namespace cu::test
