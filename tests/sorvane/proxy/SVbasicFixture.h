// Test scaffolding for chains: an option store with its defaults installed as
// the global, and a chain whose points are laid out by hand.
#pragma once

#include <gtest/gtest.h>

#include "proxy/AppendTextObject.h"
#include "proxy/SVbasic.h"
#include "tests/sorvane/options/OptionsFixture.h"

class ChainFixture : public OptionsFixture {
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        m_options.LoadOptions();
    }

    // A chain of n extensions whose slot k of extension i holds (i+1, k+1, 7),
    // with the parameter arrays of the linear set and matching records.
    static void LayOut(SVdim& chain, int nExt)
    {
        chain.Initialize(0);
        chain.m_points.setLogicalLength(0);
        for (int i = 0; i < nExt; ++i)
            for (int k = 0; k < 4; ++k)
                chain.m_points.append(AcGePoint3d(i + 1, k + 1, 7));
        chain.m_dimTexts.SetSize(nExt);
        chain.m_extFlags.SetSize(nExt);
    }

    // Six extensions: each gets its own tick, every other one hides its
    // extension line, and the segments carry user values and affixes.
    static void FillEveryKind(SVdim& chain, int iType)
    {
        LayOut(chain, 6);
        chain.m_dimType = iType;
        chain.m_dRotation = iType == SVdim::kVertical ? SVdim::kHalfPi : 0.3;
        chain.m_vectorDim = AcGeVector3d(0.6, 0.8, 0);
        chain.m_xyzOrigin = AcGePoint3d(1, 2, 3);
        chain.m_xAxis = AcGeVector3d(0, 1, 0);
        chain.m_yAxis = AcGeVector3d(-1, 0, 0);
        chain.m_zAxis = AcGeVector3d(0, 0, 1);
        chain.m_normal = AcGeVector3d(0, 0, 1);
        for (int i = 0; i < 6; ++i) {
            chain.m_dimTexts[i] = L"1.00#8";
            ASSERT_TRUE(chain.SetTickType(i, i));
            chain.SetExtLineVisible(i, i % 2 == 0);
        }
        chain.SetDimTextUser(1, L"2.50");
        chain.SetDimTextPrefix(2, L"ca. ");
        chain.SetDimTextPostfix(3, L" m");
        CAppendTextObject text;
        text.strText = L"Fenster";
        text.ptText = AcGePoint3d(4, 5, 0);
        text.bAutoPos = 0;
        text.dValue = 1.25;
        chain.SetAppendingText(2, &text);
        text.strText = L"Tür";
        chain.SetAppendingText(4, &text);
    }
};
