// Test scaffolding for chains: an option store with its defaults installed as
// the global, and a chain whose points are laid out by hand.
#pragma once

#include <gtest/gtest.h>

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
};
