-- What each document was calculated from, so that a closed month is shown as it was paid. A document that a program
-- before this one has calculated keeps none: the columns are null and it has no positions.
ALTER TABLE documents ADD COLUMN service_years INTEGER;
ALTER TABLE documents ADD COLUMN supplement_percentage DOUBLE PRECISION;
ALTER TABLE documents ADD COLUMN settings_guid TEXT;
CREATE TABLE document_positions (
  id INTEGER PRIMARY KEY,
  document_id INTEGER NOT NULL REFERENCES documents (id),
  category TEXT NOT NULL,
  factor DOUBLE PRECISION NOT NULL,
  tariff DOUBLE PRECISION NOT NULL,
  share DOUBLE PRECISION NOT NULL,
  month_salary DOUBLE PRECISION NOT NULL
);
CREATE INDEX document_positions_by_document ON document_positions (document_id);

-- The settings that documents were calculated by, a line a step of the scale. The GUID follows from what is in the
-- lines: documents of equal settings share them, and nothing here ever changes.
CREATE TABLE document_settings (
  guid TEXT NOT NULL,
  line INTEGER NOT NULL,
  settings_id INTEGER NOT NULL,
  settings_guid TEXT NOT NULL,
  date_from INTEGER NOT NULL,
  base_month_tariff_id INTEGER,
  base_hour_tariff_id INTEGER,
  personal_time_code_id_list TEXT,
  extra_charge_percentage DOUBLE PRECISION,
  surcharge_percentage DOUBLE PRECISION,
  total_charge_percentage DOUBLE PRECISION,
  row_guid TEXT,
  year_from INTEGER,
  year_to INTEGER,
  percentage DOUBLE PRECISION,
  PRIMARY KEY (guid, line)
);

-- The document_settings that a closed month is shown by; null: its documents keep too little, and it is shown by what
-- is in force.
ALTER TABLE closed_months ADD COLUMN settings_guid TEXT;
-- At which count of the pay's inputs it was closed; null when that is not known.
ALTER TABLE closed_months ADD COLUMN pay_inputs BIGINT;

-- Every closing (1) and reopening (0) of a month, in order.
CREATE TABLE month_closings (
  id INTEGER PRIMARY KEY,
  month INTEGER NOT NULL,
  closed INTEGER NOT NULL,
  done_by TEXT NOT NULL,
  done_at TEXT NOT NULL,
  reason TEXT NOT NULL
);
INSERT INTO month_closings (id, month, closed, done_by, done_at, reason)
SELECT ROW_NUMBER() OVER (ORDER BY closed_at, month), month, 1, closed_by, closed_at, '' FROM closed_months;
INSERT INTO next_ids (table_name, next_id)
SELECT 'month_closings', id + 1 FROM month_closings WHERE id = (SELECT MAX(id) FROM month_closings);

-- The last calculation of everybody in a month: at which count of the pay's inputs it was stored.
CREATE TABLE month_runs (month INTEGER PRIMARY KEY, pay_inputs BIGINT NOT NULL);
