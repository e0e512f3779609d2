-- A company: its people, tariffs and the dated rules of civil servants' pay.
-- Dates are whole serial day numbers (days since 1899-12-30); the same text runs on SQLite and on PostgreSQL.
CREATE TABLE company (id INTEGER PRIMARY KEY, name TEXT NOT NULL, change_count BIGINT NOT NULL);
INSERT INTO company (id, name, change_count) VALUES (1, '', 0);
CREATE TABLE next_ids (table_name TEXT PRIMARY KEY, next_id INTEGER NOT NULL);

CREATE TABLE departments (
  id INTEGER PRIMARY KEY,
  parent_id INTEGER REFERENCES departments (id),
  name TEXT NOT NULL,
  sort_key TEXT NOT NULL
);
CREATE TABLE employees (
  id INTEGER PRIMARY KEY,
  department_id INTEGER NOT NULL REFERENCES departments (id),
  name TEXT NOT NULL,
  sort_key TEXT NOT NULL,
  usr_acc_date INTEGER,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE INDEX employees_by_department ON employees (department_id, sort_key);

CREATE TABLE constant_types (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
CREATE TABLE constant_values (
  id INTEGER PRIMARY KEY,
  constant_type_id INTEGER NOT NULL REFERENCES constant_types (id),
  date_from INTEGER NOT NULL,
  value DOUBLE PRECISION NOT NULL,
  UNIQUE (constant_type_id, date_from)
);
CREATE TABLE indications (
  id INTEGER PRIMARY KEY,
  indication_code TEXT NOT NULL,
  code_id INTEGER NOT NULL,
  code TEXT NOT NULL,
  code_name TEXT NOT NULL,
  UNIQUE (indication_code, code_id)
);
CREATE TABLE salary_codes (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL);

CREATE TABLE categories (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL UNIQUE,
  name TEXT,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE TABLE category_rows (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL UNIQUE,
  category_id INTEGER NOT NULL REFERENCES categories (id),
  date_from INTEGER,
  factor DOUBLE PRECISION
);
CREATE INDEX category_rows_by_category ON category_rows (category_id, date_from);

CREATE TABLE settings (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL UNIQUE,
  date_from INTEGER,
  base_month_tariff_id INTEGER REFERENCES constant_types (id),
  base_hour_tariff_id INTEGER,
  personal_time_code_id_list TEXT,
  extra_charge_percentage DOUBLE PRECISION,
  surcharge_percentage DOUBLE PRECISION,
  total_charge_percentage DOUBLE PRECISION,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE TABLE settings_rows (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL UNIQUE,
  settings_id INTEGER NOT NULL REFERENCES settings (id),
  year_from INTEGER,
  year_to INTEGER,
  percentage DOUBLE PRECISION
);
CREATE INDEX settings_rows_by_settings ON settings_rows (settings_id);

CREATE TABLE experience (
  id INTEGER PRIMARY KEY,
  employee_id INTEGER NOT NULL UNIQUE REFERENCES employees (id),
  date_experience INTEGER,
  experience_years INTEGER,
  experience_months INTEGER,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE TABLE extra_charges (
  id INTEGER PRIMARY KEY,
  guid TEXT NOT NULL UNIQUE,
  employee_id INTEGER NOT NULL REFERENCES employees (id),
  date_from INTEGER,
  date_to INTEGER,
  sum_a DOUBLE PRECISION,
  percentage DOUBLE PRECISION,
  salary_extra_oid TEXT,
  salary_code_id INTEGER REFERENCES salary_codes (id),
  comment TEXT,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE INDEX extra_charges_by_employee ON extra_charges (employee_id);

-- A position of an employee: the salary-extension row with the chosen base tariff and category.
-- contract_guid followed by norm_guid is the key by which a salary document finds it.
CREATE TABLE positions (
  id INTEGER PRIMARY KEY,
  employee_id INTEGER NOT NULL REFERENCES employees (id),
  contract_guid TEXT NOT NULL,
  norm_guid TEXT NOT NULL,
  constant_type_id INTEGER,
  category_id INTEGER REFERENCES categories (id),
  share DOUBLE PRECISION NOT NULL,
  date_from INTEGER NOT NULL,
  date_to INTEGER,
  row_version INTEGER NOT NULL,
  changed_by TEXT,
  changed_at TEXT
);
CREATE INDEX positions_by_employee ON positions (employee_id, date_from);
