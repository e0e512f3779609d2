-- Worked time as it comes in, and the monthly documents that are calculated from it.
-- A month is the serial day number of its first day.
CREATE TABLE month_norms (month INTEGER PRIMARY KEY, hours DOUBLE PRECISION NOT NULL);
CREATE TABLE closed_months (month INTEGER PRIMARY KEY, closed_by TEXT NOT NULL, closed_at TEXT NOT NULL);

CREATE TABLE worked_time (
  id INTEGER PRIMARY KEY,
  employee_id INTEGER NOT NULL REFERENCES employees (id),
  month INTEGER NOT NULL,
  day INTEGER,
  time_code_id INTEGER NOT NULL,
  hours DOUBLE PRECISION NOT NULL
);
CREATE INDEX worked_time_by_month ON worked_time (month, employee_id);
CREATE UNIQUE INDEX worked_time_once ON worked_time (employee_id, month, COALESCE(day, 0), time_code_id);

-- GUIDs follow from employee, month and place: no index is needed to keep them apart, and one over them would scatter
-- every write.
CREATE TABLE documents (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL,
  employee_id INTEGER NOT NULL REFERENCES employees (id),
  month INTEGER NOT NULL,
  check_code INTEGER NOT NULL,
  check_message TEXT NOT NULL,
  UNIQUE (month, employee_id)
);
CREATE TABLE time_rows (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL,
  document_id INTEGER NOT NULL REFERENCES documents (id),
  salary_extra_oid TEXT NOT NULL,
  position_id INTEGER REFERENCES positions (id),
  time_code_id INTEGER NOT NULL,
  hours DOUBLE PRECISION NOT NULL
);
CREATE INDEX time_rows_by_document ON time_rows (document_id);
CREATE TABLE salary_rows (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL,
  document_id INTEGER NOT NULL REFERENCES documents (id),
  time_row_guid TEXT,
  sum_type INTEGER NOT NULL,
  sum_a DOUBLE PRECISION NOT NULL,
  percentage DOUBLE PRECISION,
  personal_extra_charge_id INTEGER,
  salary_code_id INTEGER
);
CREATE INDEX salary_rows_by_document ON salary_rows (document_id);

CREATE TABLE month_faults (
  employee_id INTEGER NOT NULL REFERENCES employees (id),
  month INTEGER NOT NULL,
  reason TEXT NOT NULL,
  PRIMARY KEY (month, employee_id)
);
