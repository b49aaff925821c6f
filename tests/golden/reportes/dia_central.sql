# Billing documents of this desk, of another one, of the day before, and a voided one; one advance payment that the accounts have voided.
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv, cCodCaja, fechaemision) VALUES ('01', '001', '000001', 10.00, '00001', '2026-11-24')
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv, cCodCaja, fechaemision) VALUES ('02', '001', '000002', 3.60, '00001', '2026-11-24')
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv, cCodCaja, fechaemision) VALUES ('01', '002', '000001', 99.00, '00002', '2026-11-24')
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv, cCodCaja, fechaemision) VALUES ('01', '001', '000003', 50.00, '00001', '2026-11-23')
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv, cCodCaja, fechaemision, FechaAnulacion) VALUES ('01', '001', '000004', 70.00, '00001', '2026-11-24', '2026-11-24')
INSERT INTO PAGOS (cSerieDocPago, NroDocPago, FechaAnulacion) VALUES ('PA1', '000010', '2026-11-24')
INSERT INTO PAGOS (cSerieDocPago, NroDocPago) VALUES ('PA1', '000009')
