-- Departments, salary constants, time codes and salary codes are records with editors now: whoever saves second hears
-- of the first.
ALTER TABLE departments ADD COLUMN row_version INTEGER NOT NULL DEFAULT 1;
ALTER TABLE departments ADD COLUMN changed_by TEXT;
ALTER TABLE departments ADD COLUMN changed_at TEXT;
ALTER TABLE constant_types ADD COLUMN row_version INTEGER NOT NULL DEFAULT 1;
ALTER TABLE constant_types ADD COLUMN changed_by TEXT;
ALTER TABLE constant_types ADD COLUMN changed_at TEXT;
ALTER TABLE indications ADD COLUMN row_version INTEGER NOT NULL DEFAULT 1;
ALTER TABLE indications ADD COLUMN changed_by TEXT;
ALTER TABLE indications ADD COLUMN changed_at TEXT;
ALTER TABLE salary_codes ADD COLUMN row_version INTEGER NOT NULL DEFAULT 1;
ALTER TABLE salary_codes ADD COLUMN changed_by TEXT;
ALTER TABLE salary_codes ADD COLUMN changed_at TEXT;
