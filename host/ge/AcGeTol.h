// Tolerances of the geometry library and the global tolerance context.
#pragma once

class AcGeTol {
public:
    AcGeTol() = default;
    AcGeTol(double equalPoint, double equalVector) : m_point(equalPoint), m_vector(equalVector) {}

    double equalPoint() const { return m_point; }
    double equalVector() const { return m_vector; }
    void setEqualPoint(double value) { m_point = value; }
    void setEqualVector(double value) { m_vector = value; }

private:
    double m_point = 1e-10;
    double m_vector = 1e-12;
};

// The library-wide default tolerance; functions that take an AcGeTol default to it.
struct AcGeContext {
    static AcGeTol gTol;
};
