-- SPDX-License-Identifier: MIT
-- A data file of the time before schema versions, as the emulator of that time wrote it. One statement a line.
BEGIN TRANSACTION;
CREATE TABLE client (id TEXT PRIMARY KEY, secret TEXT NOT NULL, scopes TEXT NOT NULL, organization TEXT NOT NULL) WITHOUT ROWID;
INSERT INTO "client" VALUES('pharmacy','s&c;ret','["read","dispense"]','17');
CREATE TABLE dispense (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, prescription TEXT NOT NULL REFERENCES prescription (id), pharmacy TEXT NOT NULL, quantity REAL NOT NULL, handed_over TEXT NOT NULL, final INTEGER NOT NULL, cancelled INTEGER NOT NULL, resource TEXT NOT NULL, claim TEXT NOT NULL);
INSERT INTO "dispense" VALUES(1,'d-1','rx-half','18',10.25,'2024-03-16',0,0,'','');
INSERT INTO "dispense" VALUES(2,'d-2','rx-half','17',5.0,'2024-03-20',0,1,'{"authorizingPrescription":[{"reference":"MedicationPrescription/rx-half"}],"contained":[{"code":{"coding":[{"code":"1003"}]},"id":"m","isBrand":true,"resourceType":"Medication"},{"address":{"text":"U"},"name":"A","resourceType":"Location"}],"extension":[{"url":"by-finalDispense","valueBoolean":false}],"id":"d-2","medication":{"reference":"#m"},"patient":{"reference":"Patient/p-1100"},"quantity":{"value":5},"resourceType":"MedicationDispense","status":"completed","whenHandedOver":"2024-03-20"}','{"created":"2024-03-20","id":"claim-2","item":[{"factor":0.5,"net":{"code":"BYN","value":10},"sequence":1,"service":{"code":"2102"},"type":{"code":"group"},"unitPrice":{"code":"BYN","value":20}}],"organization":{"reference":"Organization/payer-1"},"originalPrescription":{"reference":"MedicationPrescription/rx-half"},"patient":{"reference":"Patient/p-1100"},"resourceType":"Claim","type":"pharmacy"}');
INSERT INTO "dispense" VALUES(3,'d-3','rx-half','17',7.0,'2024-03-20',1,0,'{"authorizingPrescription":[{"reference":"MedicationPrescription/rx-half"}],"contained":[{"code":{"coding":[{"code":"1003"}]},"id":"m","isBrand":true,"resourceType":"Medication"},{"address":{"text":"U"},"name":"A","resourceType":"Location"}],"extension":[{"url":"by-finalDispense","valueBoolean":true}],"id":"d-3","medication":{"reference":"#m"},"patient":{"reference":"Patient/p-1100"},"quantity":{"value":7},"resourceType":"MedicationDispense","status":"completed","whenHandedOver":"2024-03-20"}','{"created":"2024-03-20","id":"claim-1","item":[{"factor":0.5,"net":{"code":"BYN","value":10},"sequence":1,"service":{"code":"2102"},"type":{"code":"group"},"unitPrice":{"code":"BYN","value":20}}],"organization":{"reference":"Organization/payer-1"},"originalPrescription":{"reference":"MedicationPrescription/rx-half"},"patient":{"reference":"Patient/p-1100"},"resourceType":"Claim","type":"pharmacy"}');
CREATE TABLE patient (card TEXT PRIMARY KEY, id TEXT NOT NULL UNIQUE, family TEXT NOT NULL, given TEXT NOT NULL, birth_date TEXT NOT NULL) WITHOUT ROWID;
INSERT INTO "patient" VALUES('1100','p-1100','Пробный','["Пётр","Петрович"]','1960-01-31');
CREATE TABLE payer (id TEXT PRIMARY KEY, name TEXT NOT NULL) WITHOUT ROWID;
INSERT INTO "payer" VALUES('payer-1','Поликлиника № 1');
CREATE TABLE practitioner (id TEXT PRIMARY KEY, family TEXT NOT NULL, given TEXT NOT NULL) WITHOUT ROWID;
INSERT INTO "practitioner" VALUES('doctor','Вымышленная','["Вера","Ильинична"]');
CREATE TABLE prescription (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, card TEXT NOT NULL REFERENCES patient, serial_number TEXT NOT NULL, status TEXT NOT NULL, inn TEXT NOT NULL, inn_code TEXT NOT NULL, trade_name TEXT NOT NULL, trade_name_code TEXT NOT NULL, dosage_code TEXT NOT NULL, prescribed_by_inn INTEGER NOT NULL, quantity REAL NOT NULL, written TEXT NOT NULL, valid_until TEXT NOT NULL, instructions TEXT NOT NULL, patient_share REAL, payer TEXT REFERENCES payer, practitioner TEXT NOT NULL REFERENCES practitioner, signed INTEGER NOT NULL);
INSERT INTO "prescription" VALUES(1,'rx-full','1100','','active','Амоксициллин','','','','',1,20.0,'2024-03-15','2124-03-15','[]',NULL,NULL,'doctor',1);
INSERT INTO "prescription" VALUES(2,'rx-half','1100','АБ 2','completed','Метформин','A10BA02','Метфолин','TN-3','1003',1,60.5,'2024-03-01','2124-04-14','["По 1 таблетке","2 раза в день"]',0.5,'payer-1','doctor',0);
CREATE TABLE rule (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;
INSERT INTO "rule" VALUES('dispenseScope','dispense');
INSERT INTO "rule" VALUES('dosageSystem','http://dictionary.example/Dosage');
INSERT INTO "rule" VALUES('oaisToken','');
INSERT INTO "rule" VALUES('prescriptionScope','read');
INSERT INTO "rule" VALUES('tokenLifetime','77');
CREATE INDEX prescription_of_card ON prescription (card, number);
CREATE INDEX dispense_of_prescription ON dispense (prescription, number);
COMMIT;
