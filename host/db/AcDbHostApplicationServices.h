// The host's application services as the database sees them: the working database.
#pragma once

class AcDbDatabase;

class AcDbHostApplicationServices {
public:
    virtual ~AcDbHostApplicationServices() = default;
    // The database commands work on; may be null (no drawing).
    AcDbDatabase* workingDatabase() const { return m_working; }
    // Null is allowed. A database being deleted clears itself from here.
    void setWorkingDatabase(AcDbDatabase* db) { m_working = db; }

private:
    AcDbDatabase* m_working = nullptr;
};

// The one services object of the process.
AcDbHostApplicationServices* acdbHostApplicationServices();
